#include "app/DeviceSetupDialog.h"

#include "editor/widgets/Captions.h"
#include "template/AreaHitTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace mervak {

namespace {

struct ModelChoice {
    const char* keyword;
    const char* catalan; // what it is
};

constexpr ModelChoice kModels[] = {
    {"DIL", "tauleta, pantalla o pissarra tàctil"},
    {"GENIUS", "tauleta, pantalla o pissarra tàctil"},
    {"EASY", "tauleta sèrie"},
    {"TRUSTMASTER", "joystick"},
    {"DANCEPAD", "catifa de ball"},
};

} // namespace

DeviceSetupDialog::DeviceSetupDialog(Session& session, TabletControl& tablet,
                                     const QList<SheetArea>& areas, const QImage& picture,
                                     QSizeF sheetMm, QWidget* parent)
    : QDialog(parent), session_(session), tablet_(tablet),
      setup_(PrivateProfile(settingsFilePath(session.homeFolder)), session.settings.model),
      areas_(areas), model_(new QComboBox), port_(new QComboBox), test_(new QPushButton),
      calibrate_(new QPushButton), mirrorX_(new QCheckBox), mirrorY_(new QCheckBox),
      readout_(new QLabel), status_(new QLabel), sheet_(new SheetView) {
    const Language language = session.language();
    setObjectName(QStringLiteral("DeviceSetupDialog"));
    setWindowCaption(this, QStringLiteral("Test i calibratge de la tauleta"), language);
    buildModels();
    buildPorts();
    setCaption(test_, QStringLiteral("Test"), language);
    setCaption(calibrate_, QStringLiteral("Calibrar"), language);
    setCaption(mirrorX_, QStringLiteral("Inv Horitzontal"), language);
    setCaption(mirrorY_, QStringLiteral("Inv Vertical"), language);
    mirrorX_->setChecked(setup_.mirrorX());
    mirrorY_->setChecked(setup_.mirrorY());
    QFont large = readout_->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    readout_->setFont(large);
    readout_->setObjectName(QStringLiteral("readout"));
    status_->setWordWrap(true);
    status_->setObjectName(QStringLiteral("status"));
    sheet_->setSheetSize(sheetMm);
    sheet_->setPicture(picture);
    sheet_->setAreas(areas_);
    sheet_->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto* choices = new QFormLayout;
    auto* modelLabel = new QLabel;
    setCaption(modelLabel, QStringLiteral("Model:"), language);
    auto* portLabel = new QLabel;
    setCaption(portLabel, QStringLiteral("Port:"), language);
    choices->addRow(modelLabel, model_);
    choices->addRow(portLabel, port_);
    auto* actions = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{test_, calibrate_, mirrorX_, mirrorY_})
        actions->addWidget(widget);
    actions->addStretch(1);
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close);
    setCaption(close->button(QDialogButtonBox::Close), QStringLiteral("Tancar"), language);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addLayout(actions);
    layout->addWidget(readout_);
    layout->addWidget(status_);
    layout->addWidget(sheet_, 1);
    layout->addWidget(close);
    resize(560, 620);

    connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(test_, &QPushButton::clicked, this, &DeviceSetupDialog::test);
    connect(calibrate_, &QPushButton::clicked, this, &DeviceSetupDialog::calibrate);
    connect(mirrorX_, &QCheckBox::toggled, this, &DeviceSetupDialog::mirrorChanged);
    connect(mirrorY_, &QCheckBox::toggled, this, &DeviceSetupDialog::mirrorChanged);
    connect(port_, &QComboBox::activated, this, &DeviceSetupDialog::choosePort);
    connect(model_, &QComboBox::activated, this, [this] { updateButtons(); });
    connect(&tablet_, &TabletControl::startFinished, this, &DeviceSetupDialog::onStartFinished);
    connect(&tablet_, &TabletControl::statusMessage, this, [this](const QString& text) {
        if (!text.isEmpty())
            status_->setText(text);
    });
    connect(&tablet_, &TabletControl::pointerMoved, this, [this](PressPoint pointer) {
        pointer_ = pointer;
        showReading();
    });
    connect(&tablet_, &TabletControl::positionArrived, this, [this](PressPoint press) {
        press_ = press;
        showReading();
    });
    // Queued: a corner that ends the calibration restarts the device that reported it.
    connect(&tablet_, &TabletControl::touchedDown, this, &DeviceSetupDialog::onTouchedDown,
            Qt::QueuedConnection);

    tablet_.setTesting(true);
    showReading();
    if (session_.DevicePresent)
        say(QStringLiteral("Premeu la làmina per provar la tauleta."));
    else
        status_->setText(tablet_.caption());
    updateButtons();
}

DeviceSetupDialog::~DeviceSetupDialog() {
    tablet_.setTesting(false);
}

QString DeviceSetupDialog::caption(const QString& catalan) const {
    return TranslateCaption(session_.language(), catalan);
}

void DeviceSetupDialog::say(const QString& catalan) {
    status_->setText(caption(catalan));
}

void DeviceSetupDialog::buildModels() {
    for (const ModelChoice& choice : kModels) {
        const QString keyword = QString::fromLatin1(choice.keyword);
        model_->addItem(keyword + QStringLiteral(": ") + caption(QString::fromUtf8(choice.catalan)),
                        keyword);
    }
    const int current = model_->findData(session_.settings.model);
    model_->setCurrentIndex(std::max(current, 0));
}

// The configured port first when the machine does not list it (a recording, a
// device unplugged now, COM3).
void DeviceSetupDialog::buildPorts() {
    port_->addItem(caption(QStringLiteral("Detecció automàtica")), QString());
    for (const PortChoice& choice : DeviceSetup::ports())
        port_->addItem(choice.label, choice.port);
    const QString configured = portSetting(session_.settings);
    if (configured != QLatin1String("AUTODETECT") && port_->findData(configured) < 0)
        port_->insertItem(1, configured, configured);
    // The last entry opens a file dialog instead of naming a port.
    port_->addItem(caption(QStringLiteral("Un enregistrament...")));
    const int current = port_->findData(configured);
    port_->setCurrentIndex(std::max(current, 0));
}

void DeviceSetupDialog::choosePort(int index) {
    if (index != port_->count() - 1)
        return;
    const QString file = QFileDialog::getOpenFileName(
        this, caption(QStringLiteral("Enregistrament d'un dispositiu")), session_.homeFolder,
        caption(QStringLiteral("Enregistraments d'evemu (*.evemu *.txt);;Tots els fitxers (*)")));
    if (file.isEmpty()) {
        port_->setCurrentIndex(0);
        return;
    }
    port_->insertItem(index, file, file);
    port_->setCurrentIndex(index);
}

// The chosen model and port become the program's; a device found is written back.
void DeviceSetupDialog::test() {
    const QString model = model_->currentData().toString();
    if (model != setup_.model()) {
        setup_.chooseModel(model);
        const QSignalBlocker quietX(mirrorX_);
        const QSignalBlocker quietY(mirrorY_);
        mirrorX_->setChecked(setup_.mirrorX());
        mirrorY_->setChecked(setup_.mirrorY());
    }
    session_.settings.model = model;
    setPort(session_.settings, port_->currentData().toString());
    restartDevice(QStringLiteral("Tauleta trobada. Premeu la làmina per provar-la."));
}

void DeviceSetupDialog::calibrate() {
    setup_.startCalibration();
    say(QStringLiteral("Premeu la cantonada superior esquerra de la làmina."));
    updateButtons();
}

void DeviceSetupDialog::mirrorChanged() {
    setup_.setMirror(mirrorX_->isChecked(), mirrorY_->isChecked());
    restartDevice(QStringLiteral("Calibratge desat. Premeu la làmina per provar-lo."));
}

// The device reads its calibration when it starts.
void DeviceSetupDialog::restartDevice(const QString& catalanWhenReady) {
    whenReady_ = catalanWhenReady;
    restarting_ = true;
    say(QStringLiteral("Cercant la tauleta..."));
    pointer_ = press_ = {};
    showReading();
    tablet_.stop();
    tablet_.start();
}

void DeviceSetupDialog::onStartFinished(bool present) {
    if (!std::exchange(restarting_, false))
        return;
    if (!present) {
        status_->setText(tablet_.caption());
        updateButtons();
        return;
    }
    QString error;
    if (setup_.save(session_.settings, &error))
        say(whenReady_);
    else
        status_->setText(error);
    updateButtons();
}

void DeviceSetupDialog::onTouchedDown(QPoint reading) {
    if (setup_.step() == DeviceSetup::Step::Idle)
        return;
    if (setup_.cornerPressed(reading) == DeviceSetup::Step::BottomRight) {
        say(QStringLiteral("Premeu ara la cantonada inferior dreta de la làmina."));
        return;
    }
    restartDevice(QStringLiteral("Calibratge desat. Premeu la làmina per provar-lo."));
}

// Where the device presses, else where it points: in sheet units, with the
// Area there marked on the sheet.
void DeviceSetupDialog::showReading() {
    const bool pressed = press_ != PressPoint{};
    const PressPoint point = pressed ? press_ : pointer_;
    const bool none = point == PressPoint{};
    const AreaHit hit = none ? AreaHit{} : FindArea(session_.tmpl, point.x, point.y);
    QList<SheetArea> areas = areas_;
    for (SheetArea& area : areas)
        area.selected = hit.index != 0 && area.number == hit.ordinal;
    sheet_->setAreas(areas);
    sheet_->setMarker(none ? std::nullopt : std::optional(QPointF(point.x, point.y)));
    if (none) {
        readout_->setText(caption(QStringLiteral("Sense lectura")));
        return;
    }
    QString text = QStringLiteral("X %1   Y %2").arg(point.x).arg(point.y);
    if (hit.index != 0)
        text +=
            QStringLiteral("   ") + caption(QStringLiteral("Àrea ")) + QString::number(hit.ordinal);
    if (pressed)
        text += QStringLiteral("   ") + caption(QStringLiteral("(premut)"));
    readout_->setText(text);
}

void DeviceSetupDialog::updateButtons() {
    const bool absolute = DeviceSetup::canCalibrate(model_->currentData().toString()) &&
                          model_->currentData().toString() == setup_.model();
    calibrate_->setEnabled(absolute && session_.DevicePresent &&
                           setup_.step() == DeviceSetup::Step::Idle);
    mirrorX_->setEnabled(absolute);
    mirrorY_->setEnabled(absolute);
}

} // namespace mervak
