#include "editor/widgets/PlantForm.h"

#include "action/MacroCatalogue.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "platform/PathResolver.h"
#include "platform/WindowSystem.h"
#include "template/Template.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

namespace mervak {

namespace {

constexpr QSize kPreviewSize(220, 165);
constexpr int kPromptData = -1; // item data of the picker rows that are no entry
constexpr int kOtherData = -2;
constexpr int kMinSheetMm = 20;
constexpr int kMaxSheetMm = 1000;

// What each field is for, by the object name of its control.
constexpr std::pair<const char*, const char*> kFieldTips[] = {
    {"FitxGraf", "La imatge de la làmina que es posa sobre la tauleta"},
    {"Pathdefault", "La carpeta on es busquen els fitxers amb nom relatiu"},
    {"FitxClip", "La carpeta dels dibuixos que enganxen les àrees"},
    {"FitxDoc", "Un document per al mestre sobre la plantilla"},
    {"descripcio", "Una descripció breu de la plantilla"},
    {"SheetWidthMm", "L'amplada de la làmina impresa; la de la tauleta és 270 mm"},
    {"SheetHeightMm", "L'alçada de la làmina impresa; la de la tauleta és 190 mm"},
    {"TxFinestra", "El títol de la finestra que rep les tecles, o el seu començament"},
    {"triaFinestra", "Tria una de les finestres obertes"},
    {"Ordres", "L'ordre que engega l'aplicació"},
    {"programes", "Posa a Ordres un programa de MACROS.INI"},
    {"Tecles", "Les tecles de la plantilla"},
    {"macros", "Insereix a Tecles una macro de MACROS.INI"},
    {"SoundActive", "Fa sonar els sons i la veu de les àrees"},
    {"sv_idioma", "L'idioma de la veu"},
    {"sv_locutor", "La veu que llegeix"},
    {"SV_velocitat", "La velocitat de lectura"},
};

QLineEdit* field(const char* name) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QString::fromLatin1(name));
    edit->setMinimumWidth(260);
    return edit;
}

QLabel* captionLabel(const char* catalan, Language language, QWidget* buddy) {
    auto* label = new QLabel;
    setCaption(label, QString::fromUtf8(catalan), language);
    label->setBuddy(buddy);
    return label;
}

QToolButton* browseButton(const char* tipCatalan, Language language) {
    auto* button = new QToolButton;
    button->setText(QStringLiteral("..."));
    setToolTipCaption(button, QString::fromUtf8(tipCatalan), language);
    return button;
}

QHBoxLayout* row(std::initializer_list<QWidget*> widgets) {
    auto* layout = new QHBoxLayout;
    for (QWidget* widget : widgets)
        layout->addWidget(widget);
    return layout;
}

void setEnabledRow(QComboBox* combo, int row, bool enabled) {
    if (auto* model = qobject_cast<QStandardItemModel*>(combo->model()))
        model->item(row)->setEnabled(enabled);
}

// The entries in file order, a disabled group title before each new group.
void addEntries(QComboBox* combo, const QList<CatalogueEntry>& entries) {
    QString group;
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (entries[i].group.compare(group, Qt::CaseInsensitive) != 0) {
            group = entries[i].group;
            combo->addItem(group.isEmpty() ? QStringLiteral("—") : group, kPromptData);
            setEnabledRow(combo, combo->count() - 1, false);
        }
        combo->addItem(QStringLiteral("    ") + entries[i].name, static_cast<int>(i));
    }
}

// The speech language by its name in the interface language.
QString speechLanguageName(Language language, int index) {
    return TranslateCaption(language,
                            index == 1 ? QStringLiteral("castellà") : QStringLiteral("català"));
}

// A voice as a teacher reads it: its language and number, then the engine's
// variant, if any ("català 2 (klatt)").
QString voiceCaption(Language language, int speechLanguage, int index, const QString& engineName) {
    if (engineName.isEmpty())
        return {};
    QString text =
        speechLanguageName(language, speechLanguage) + QStringLiteral(" %1").arg(index + 1);
    if (const qsizetype plus = engineName.indexOf(u'+'); plus >= 0)
        text += QStringLiteral(" (") + engineName.mid(plus + 1).trimmed() + u')';
    return text;
}

// A speed in percent as a word; 0 or less is the normal speed.
QString speedWord(Language language, int speed) {
    constexpr int kSlowBelow = 85;
    constexpr int kFastAbove = 120;
    if (speed > 0 && speed < kSlowBelow)
        return TranslateCaption(language, QStringLiteral("lenta"));
    if (speed > kFastAbove)
        return TranslateCaption(language, QStringLiteral("ràpida"));
    return TranslateCaption(language, QStringLiteral("normal"));
}

int16_t spinValue(const QSpinBox* spin) {
    return static_cast<int16_t>(spin->value());
}

} // namespace

bool PlantForm::edit(QWidget* parent, Template& t, WindowSystem& windows,
                     const MacroCatalogue& catalogue, Language language, QString* pathDefault,
                     VoiceNames voices) {
    PlantForm form(t, windows, catalogue, language, pathDefault, parent, std::move(voices));
    if (form.exec() != QDialog::Accepted)
        return false;
    return form.applyTo(t, pathDefault);
}

PlantForm::PlantForm(const Template& t, WindowSystem& windows, const MacroCatalogue& catalogue,
                     Language language, const QString* pathDefault, QWidget* parent,
                     VoiceNames voices)
    : QDialog(parent), windows_(windows), catalogue_(catalogue), language_(language),
      fitxGraf_(field("FitxGraf")), pathDefault_(field("Pathdefault")),
      fitxClip_(field("FitxClip")), txFinestra_(field("TxFinestra")), tecles_(field("Tecles")),
      ordres_(field("Ordres")), fitxDoc_(field("FitxDoc")), descripcio_(field("descripcio")),
      soundActive_(new QCheckBox), svIdioma_(new QComboBox), svLocutor_(new QSpinBox),
      voiceName_(new QLabel), voices_(std::move(voices)), svVelocitat_(new QSpinBox),
      speedWord_(new QLabel), sheetWidth_(new QSpinBox), sheetHeight_(new QSpinBox),
      programs_(new QComboBox), macros_(new QComboBox), windowButton_(new QToolButton),
      windowMenu_(new QMenu(this)), preview_(new QLabel) {
    setObjectName(QStringLiteral("PlantForm"));
    if (!t.isUntitled())
        templateFolder_ = QFileInfo(t.TemplateFileName).absolutePath();
    buildLayout(language, pathDefault != nullptr);
    load(t, pathDefault);
    initial_ = fields();
    connect(fitxGraf_, &QLineEdit::textChanged, this, &PlantForm::refreshPreview);
    connect(programs_, &QComboBox::activated, this, &PlantForm::programPicked);
    connect(macros_, &QComboBox::activated, this, &PlantForm::macroPicked);
    connect(windowButton_, &QToolButton::clicked, this, &PlantForm::showWindowList);
    connect(svIdioma_, &QComboBox::currentIndexChanged, this, &PlantForm::refreshVoiceName);
    connect(svLocutor_, &QSpinBox::valueChanged, this, &PlantForm::refreshVoiceName);
    connect(svVelocitat_, &QSpinBox::valueChanged, this,
            [this](int speed) { speedWord_->setText(speedWord(language_, speed)); });
    speedWord_->setText(speedWord(language_, svVelocitat_->value()));
    refreshPreview();
    refreshVoiceName();
}

void PlantForm::buildLayout(Language language, bool withPathDefault) {
    setWindowCaption(this, QStringLiteral("Dades Inicials"), language);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sheetGroup(language, withPathDefault));
    layout->addWidget(programGroup(language));
    layout->addWidget(speechGroup(language));
    layout->addLayout(buttonRow(language));
    fillPickers(language);
    alignLabels();
    for (const auto& [name, tip] : kFieldTips)
        if (auto* control = findChild<QWidget*>(QString::fromLatin1(name)))
            setToolTipCaption(control, QString::fromUtf8(tip), language);
}

// Picture, folders, documentation and description, with the picture's preview.
QGroupBox* PlantForm::sheetGroup(Language language, bool withPathDefault) {
    auto* pictureButton = browseButton("Fitxer...", language);
    connect(pictureButton, &QToolButton::clicked, this, [this] {
        browseFile(fitxGraf_, QStringLiteral("Caràtula:"), QStringLiteral("Fitxers Gràfics"),
                   {"*.png", "*.jpg", "*.jpeg", "*.bmp", "*.gif"});
    });
    auto* clipButton = browseButton("Directori", language);
    connect(clipButton, &QToolButton::clicked, this, [this] { browseFolder(fitxClip_); });
    auto* docButton = browseButton("Fitxer...", language);
    connect(docButton, &QToolButton::clicked, this, [this] {
        browseFile(fitxDoc_, QStringLiteral("Documentació:"), QStringLiteral("Tots els fitxers"),
                   {"*"});
    });
    auto* viewDoc = new QToolButton;
    setCaption(viewDoc, QStringLiteral("Veure"), language);
    setToolTipCaption(viewDoc, QStringLiteral("Veure la documentació"), language);
    connect(viewDoc, &QToolButton::clicked, this, &PlantForm::openDocumentation);

    auto* form = new QFormLayout;
    auto* pictureWord = new QLabel;
    pictureWord->setObjectName(QStringLiteral("FitxGraf_word"));
    setCaption(pictureWord, QStringLiteral("(la imatge de la làmina)"), language);
    addFormRow(form, "Caràtula:", fitxGraf_, row({fitxGraf_, pictureButton, pictureWord}),
               language);
    setToolTipCaption(formLabels_.last(),
                      QStringLiteral("La imatge de la làmina que es posa sobre la tauleta"),
                      language);
    if (withPathDefault) {
        auto* folderButton = browseButton("Directori", language);
        connect(folderButton, &QToolButton::clicked, this, [this] { browseFolder(pathDefault_); });
        addFormRow(form, "Directori:", pathDefault_, row({pathDefault_, folderButton}), language);
    } else {
        pathDefault_->setParent(this);
        pathDefault_->hide();
    }
    addFormRow(form, "Carregar fitxer a la carpeta:", fitxClip_, row({fitxClip_, clipButton}),
               language);
    addFormRow(form, "Documentació:", fitxDoc_, row({fitxDoc_, docButton, viewDoc}), language);
    addFormRow(form, "Descripció:", descripcio_, row({descripcio_}), language);
    addFormRow(form, "Mida de la làmina:", sheetWidth_, sheetSizeRow(), language);

    preview_->setObjectName(QStringLiteral("preview"));
    preview_->setFixedSize(kPreviewSize);
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setFrameShape(QFrame::StyledPanel);
    preview_->setStyleSheet(QStringLiteral("background: white"));
    auto* box = new QGroupBox;
    setCaption(box, QStringLiteral("Làmina"), language);
    auto* layout = new QHBoxLayout(box);
    layout->addLayout(form, 1);
    layout->addWidget(preview_, 0, Qt::AlignTop);
    return box;
}

// Width × height in millimetres: what the sheet units span, on the screen and on paper.
QHBoxLayout* PlantForm::sheetSizeRow() {
    sheetWidth_->setObjectName(QStringLiteral("SheetWidthMm"));
    sheetHeight_->setObjectName(QStringLiteral("SheetHeightMm"));
    for (QSpinBox* spin : {sheetWidth_, sheetHeight_}) {
        spin->setRange(kMinSheetMm, kMaxSheetMm);
        spin->setSuffix(QStringLiteral(" mm"));
    }
    auto* layout = row({sheetWidth_, new QLabel(QStringLiteral("×")), sheetHeight_});
    layout->addStretch(1);
    return layout;
}

// The target window, the command line and the keys, with their pickers.
QGroupBox* PlantForm::programGroup(Language language) {
    windowButton_->setObjectName(QStringLiteral("triaFinestra"));
    windowButton_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    setCaption(windowButton_, QStringLiteral("Finestres obertes..."), language);
    programs_->setObjectName(QStringLiteral("programes"));
    macros_->setObjectName(QStringLiteral("macros"));
    auto* form = new QFormLayout;
    addFormRow(form, "Aplicació:", txFinestra_, row({txFinestra_, windowButton_}), language);
    addFormRow(form, "Ordres:", ordres_, row({ordres_}), language);
    form->addRow(QString(), programs_);
    addFormRow(form, "Tecles:", tecles_, row({tecles_}), language);
    form->addRow(QString(), macros_);
    auto* box = new QGroupBox;
    setCaption(box, QStringLiteral("Programació"), language);
    box->setLayout(form);
    return box;
}

QGroupBox* PlantForm::speechGroup(Language language) {
    soundActive_->setObjectName(QStringLiteral("SoundActive"));
    setCaption(soundActive_, QStringLiteral("&So actiu"), language);
    svIdioma_->setObjectName(QStringLiteral("sv_idioma"));
    svIdioma_->addItems({speechLanguageName(language, 0), speechLanguageName(language, 1)});
    svLocutor_->setObjectName(QStringLiteral("sv_locutor"));
    svLocutor_->setRange(0, 999);
    voiceName_->setObjectName(QStringLiteral("sv_locutor_name"));
    svVelocitat_->setObjectName(QStringLiteral("SV_velocitat"));
    svVelocitat_->setRange(0, 999);
    svVelocitat_->setSuffix(QStringLiteral(" %"));
    speedWord_->setObjectName(QStringLiteral("SV_velocitat_word"));
    auto* box = new QGroupBox;
    setCaption(box, QStringLiteral("Síntesis de veu UPCTV"), language);
    auto* layout = new QHBoxLayout(box);
    layout->addWidget(soundActive_);
    layout->addSpacing(16);
    for (auto [caption, widget] : {std::pair<const char*, QWidget*>{"Idioma:", svIdioma_},
                                   {"Veu", svLocutor_},
                                   {"Velocitat", svVelocitat_}}) {
        layout->addWidget(captionLabel(caption, language, widget));
        layout->addWidget(widget);
        if (widget == svLocutor_)
            layout->addWidget(voiceName_);
        if (widget == svVelocitat_)
            layout->addWidget(speedWord_);
        layout->addSpacing(8);
    }
    layout->addStretch(1);
    return box;
}

QHBoxLayout* PlantForm::buttonRow(Language language) {
    auto* accept = new QPushButton;
    accept->setObjectName(QStringLiteral("Acceptar"));
    setCaption(accept, QStringLiteral("Acceptar"), language);
    accept->setDefault(true);
    auto* cancel = new QPushButton;
    cancel->setObjectName(QStringLiteral("Cancellar"));
    setCaption(cancel, QStringLiteral("Cancel·lar"), language);
    connect(accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(accept);
    buttons->addWidget(cancel);
    return buttons;
}

void PlantForm::addFormRow(QFormLayout* form, const char* caption, QWidget* buddy,
                           QHBoxLayout* fields, Language language) {
    QLabel* label = captionLabel(caption, language, buddy);
    formLabels_.append(label);
    form->addRow(label, fields);
}

// Both groups' fields start at the same column, in either language.
void PlantForm::alignLabels() {
    int widest = 0;
    for (QLabel* label : formLabels_) {
        label->setMinimumWidth(0);
        widest = std::max(widest, label->sizeHint().width());
    }
    for (QLabel* label : formLabels_)
        label->setMinimumWidth(widest);
}

void PlantForm::load(const Template& t, const QString* pathDefault) {
    fitxGraf_->setText(t.FitxGraf);
    if (pathDefault)
        pathDefault_->setText(*pathDefault);
    fitxClip_->setText(t.FitxClip);
    txFinestra_->setText(t.TxFinestra);
    tecles_->setText(t.Tecles);
    ordres_->setText(t.Ordres);
    fitxDoc_->setText(t.FitxDoc);
    descripcio_->setText(t.descripcio);
    soundActive_->setChecked(t.SoundActive != 0);
    svIdioma_->setCurrentIndex(t.sv_idioma == 1 ? 1 : 0);
    svLocutor_->setValue(t.sv_locutor);
    svVelocitat_->setValue(t.SV_velocitat);
    sheetWidth_->setValue(t.SheetWidthMm);
    sheetHeight_->setValue(t.SheetHeightMm);
    for (QLineEdit* edit : findChildren<QLineEdit*>())
        edit->setCursorPosition(0);
}

void PlantForm::fillPickers(Language language) {
    programs_->clear();
    programs_->addItem(Message(language, Msg::ProgramPrompt), kPromptData);
    programs_->addItem(Message(language, Msg::OtherProgram), kOtherData);
    addEntries(programs_, catalogue_.programs());
    macros_->clear();
    macros_->addItem(Message(language, Msg::MacroPrompt), kPromptData);
    addEntries(macros_, catalogue_.macros());
}

PlantFields PlantForm::fields() const {
    PlantFields f;
    f.FitxGraf = fitxGraf_->text();
    f.Pathdefault = pathDefault_->text();
    f.FitxClip = fitxClip_->text();
    f.TxFinestra = txFinestra_->text();
    f.Tecles = tecles_->text();
    f.Ordres = ordres_->text();
    f.FitxDoc = fitxDoc_->text();
    f.descripcio = descripcio_->text();
    f.SoundActive = soundActive_->isChecked() ? -1 : 0;
    f.sv_idioma = static_cast<int16_t>(svIdioma_->currentIndex());
    f.sv_locutor = spinValue(svLocutor_);
    f.SV_velocitat = spinValue(svVelocitat_);
    f.SheetWidthMm = spinValue(sheetWidth_);
    f.SheetHeightMm = spinValue(sheetHeight_);
    return f;
}

bool PlantForm::applyTo(Template& t, QString* pathDefault) const {
    const PlantFields now = fields();
    if (now == initial_)
        return false;
    // Only what the user changed is written: a stored value the controls
    // cannot show (a speed of 5000, say) survives an untouched dialog.
    auto apply = [](auto& target, const auto& before, const auto& after) {
        if (after != before)
            target = after;
    };
    apply(t.FitxGraf, initial_.FitxGraf, now.FitxGraf);
    if (pathDefault)
        apply(*pathDefault, initial_.Pathdefault, now.Pathdefault);
    apply(t.FitxClip, initial_.FitxClip, now.FitxClip);
    apply(t.TxFinestra, initial_.TxFinestra, now.TxFinestra);
    apply(t.Tecles, initial_.Tecles, now.Tecles);
    apply(t.Ordres, initial_.Ordres, now.Ordres);
    apply(t.FitxDoc, initial_.FitxDoc, now.FitxDoc);
    apply(t.descripcio, initial_.descripcio, now.descripcio);
    apply(t.SoundActive, initial_.SoundActive, now.SoundActive);
    apply(t.sv_idioma, initial_.sv_idioma, now.sv_idioma);
    apply(t.sv_locutor, initial_.sv_locutor, now.sv_locutor);
    apply(t.SV_velocitat, initial_.SV_velocitat, now.SV_velocitat);
    apply(t.SheetWidthMm, initial_.SheetWidthMm, now.SheetWidthMm);
    apply(t.SheetHeightMm, initial_.SheetHeightMm, now.SheetHeightMm);
    t.Modified = true;
    return true;
}

void PlantForm::programPicked(int row) {
    const int data = programs_->itemData(row).toInt();
    programs_->setCurrentIndex(MacroCatalogue::kProgramPromptRow);
    if (data == kOtherData) {
        const QString chosen =
            chooseFileToOpen(this, language_, QStringLiteral("Executar programes"),
                             {{QStringLiteral("Tots els fitxers"), {QStringLiteral("*")}}},
                             QStringLiteral("/usr/bin"));
        if (!chosen.isEmpty())
            ordres_->setText(chosen);
    } else if (data >= 0 && data < catalogue_.programs().size()) {
        ordres_->setText(catalogue_.programs()[data].text);
    }
}

void PlantForm::macroPicked(int row) {
    const int data = macros_->itemData(row).toInt();
    macros_->setCurrentIndex(MacroCatalogue::kMacroPromptRow);
    if (data >= 0 && data < catalogue_.macros().size()) {
        tecles_->insert(catalogue_.macros()[data].text);
        tecles_->setFocus();
    }
}

void PlantForm::showWindowList() {
    // Our own windows are no target; they are known by title, as window ids
    // from the window system and from the toolkit need not share one space.
    QStringList ours;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible())
            continue;
        // As the window system shows it: "[*]" becomes "*" while modified.
        QString title = window->windowTitle();
        ours.append(title.replace(QStringLiteral("[*]"),
                                  window->isWindowModified() ? QStringLiteral("*") : QString()));
    }
    windowMenu_->clear();
    for (const WindowInfo& window : windows_.topLevelWindows()) {
        if (ours.contains(window.title) || window.title.trimmed().isEmpty())
            continue;
        const QString title = window.title;
        connect(windowMenu_->addAction(title), &QAction::triggered, this, [this, title] {
            txFinestra_->setText(title);
            txFinestra_->setCursorPosition(0);
        });
    }
    if (windowMenu_->isEmpty())
        windowMenu_->addAction(TranslateCaption(language_, QStringLiteral("(cap finestra)")))
            ->setEnabled(false);
    windowMenu_->popup(windowButton_->mapToGlobal(QPoint(0, windowButton_->height())));
}

void PlantForm::refreshVoiceName() {
    const QStringList names =
        voices_ ? voices_(static_cast<int16_t>(svIdioma_->currentIndex())) : QStringList();
    voiceName_->setText(voiceCaption(language_, svIdioma_->currentIndex(), svLocutor_->value(),
                                     names.value(svLocutor_->value())));
}

void PlantForm::refreshPreview() {
    const QString path = resolved(fitxGraf_->text());
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QImage image = fitxGraf_->text().isEmpty() ? QImage() : reader.read();
    if (image.isNull()) {
        preview_->setPixmap(QPixmap());
        preview_->setText(fitxGraf_->text().isEmpty() ? QString() : QStringLiteral("?"));
        return;
    }
    const QSize inner = kPreviewSize - QSize(6, 6);
    preview_->setPixmap(
        QPixmap::fromImage(image.scaled(inner, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

void PlantForm::browseFile(QLineEdit* target, const QString& title, const QString& filterName,
                           const QStringList& patterns) {
    const QString current = resolved(target->text());
    const QString start = target->text().isEmpty() ? templateFolder_ : QFileInfo(current).path();
    const QString chosen =
        chooseFileToOpen(this, language_, title, {{filterName, patterns}}, start);
    if (!chosen.isEmpty())
        target->setText(storedName(chosen));
}

void PlantForm::browseFolder(QLineEdit* target) {
    QFileDialog dialog(this, TranslateCaption(language_, QStringLiteral("Directori")));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Reject,
                        TranslateCaption(language_, QStringLiteral("Cancel·lar")));
    dialog.setLabelText(QFileDialog::Accept,
                        TranslateCaption(language_, QStringLiteral("Acceptar")));
    const QString current = resolved(target->text());
    dialog.setDirectory(QFileInfo(current).isDir() ? current : templateFolder_);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        target->setText(storedName(dialog.selectedFiles().first()));
}

void PlantForm::openDocumentation() {
    const QString path = resolved(fitxDoc_->text());
    if (!fitxDoc_->text().isEmpty() && QFileInfo::exists(path))
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    else
        QApplication::beep();
}

QString PlantForm::storedName(const QString& chosenPath) const {
    if (templateFolder_.isEmpty())
        return chosenPath;
    const QString relative = QDir(templateFolder_).relativeFilePath(chosenPath);
    const bool inside = !relative.startsWith(QStringLiteral("..")) && relative != u".";
    return inside ? relative : chosenPath;
}

QString PlantForm::resolved(const QString& stored) const {
    return resolveStoredPath(stored,
                             templateFolder_.isEmpty() ? QDir::currentPath() : templateFolder_);
}

} // namespace mervak
