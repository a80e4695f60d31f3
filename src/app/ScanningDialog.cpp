#include "app/ScanningDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kLongestMs = 60000;

QString caption(Language language, const char* catalan) {
    return TranslateCaption(language, QString::fromUtf8(catalan));
}

QComboBox* choices(Language language, std::initializer_list<const char*> catalan, int current) {
    auto* box = new QComboBox;
    for (const char* text : catalan)
        box->addItem(caption(language, text));
    box->setCurrentIndex(current);
    return box;
}

} // namespace

ScanningDialog::ScanningDialog(const ScanSettings& settings, bool templateOnly, Language language,
                               QWidget* parent)
    : QDialog(parent), language_(language), initial_(settings),
      mode_(choices(language, {"Cap", "Element a element", "Files i columnes"},
                    static_cast<int>(settings.mode))),
      switches_(choices(language, {"Un (automàtica)", "Dos (pas a pas)"}, settings.switches - 1)),
      advance_(new QLineEdit(settings.advance)), select_(new QLineEdit(settings.select)),
      longPress_(choices(language,
                         {"Res", "Exploració nivell anterior", "Exploració nivell inicial"},
                         static_cast<int>(settings.longPress))),
      speak_(new QCheckBox(caption(language, "Llegir en veu alta cada element"))),
      templateOnly_(new QCheckBox(caption(language, "Només per a aquesta plantilla"))),
      form_(new QFormLayout) {
    setWindowTitle(caption(language, "Exploració"));
    mode_->setObjectName(QStringLiteral("Mode"));
    switches_->setObjectName(QStringLiteral("Commutadors"));
    const QString switchHint =
        caption(language, "Una tecla (F5, space), boto1 a boto3 o un botó del dispositiu "
                          "(BTN_TRIGGER)");
    advance_->setToolTip(switchHint);
    select_->setToolTip(switchHint);
    form_->addRow(caption(language, "Exploració:"), mode_);
    form_->addRow(caption(language, "Commutadors:"), switches_);
    form_->addRow(caption(language, "Commutador per triar:"), select_);
    form_->addRow(caption(language, "Commutador per avançar:"), advance_);
    interval_ = addNumber("Interval (ms):", settings.intervalMs, 200);
    firstExtra_ = addNumber("Temps afegit al primer (ms):", settings.firstExtraMs, 0);
    loops_ = addNumber("Voltes abans d'aturar-se (0: mai):", settings.loops, 0);
    acceptance_ = addNumber("Temps d'acceptació (ms):", settings.acceptanceMs, 0);
    pause_ = addNumber("Pausa després de triar (ms):", settings.pauseMs, 0);
    longPressMs_ = addNumber("Premuda llarga (ms, 0: cap):", settings.longPressMs, 0);
    form_->addRow(caption(language, "Premuda llarga:"), longPress_);
    speak_->setChecked(settings.speak);
    form_->addRow(speak_);
    templateOnly_->setChecked(templateOnly);
    form_->addRow(templateOnly_);
    const auto showAdvance = [this] {
        advance_->setEnabled(switches_->currentIndex() == 1);
        interval_->setEnabled(switches_->currentIndex() == 0);
    };
    connect(switches_, &QComboBox::currentIndexChanged, this, showAdvance);
    showAdvance();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(caption(language, "Acceptar"));
    buttons->button(QDialogButtonBox::Cancel)->setText(caption(language, "Cancel·lar"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form_);
    layout->addWidget(buttons);
}

QSpinBox* ScanningDialog::addNumber(const char* catalan, int value, int least) {
    auto* spin = new QSpinBox;
    spin->setRange(least, kLongestMs);
    spin->setValue(value);
    spin->setObjectName(QString::fromUtf8(catalan));
    form_->addRow(caption(language_, catalan), spin);
    return spin;
}

ScanSettings ScanningDialog::settings() const {
    ScanSettings s = initial_;
    s.mode = static_cast<ScanSettings::Mode>(mode_->currentIndex());
    s.switches = switches_->currentIndex() + 1;
    if (!advance_->text().trimmed().isEmpty())
        s.advance = advance_->text().trimmed();
    if (!select_->text().trimmed().isEmpty())
        s.select = select_->text().trimmed();
    s.intervalMs = interval_->value();
    s.firstExtraMs = firstExtra_->value();
    s.loops = loops_->value();
    s.acceptanceMs = acceptance_->value();
    s.pauseMs = pause_->value();
    s.longPressMs = longPressMs_->value();
    s.longPress = static_cast<ScanSettings::LongPress>(longPress_->currentIndex());
    s.speak = speak_->isChecked();
    return s;
}

bool ScanningDialog::templateOnly() const {
    return templateOnly_->isChecked();
}

} // namespace mervak
