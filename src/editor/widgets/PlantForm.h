#pragma once

#include "platform/Language.h"

#include <QDialog>
#include <QStringList>
#include <cstdint>
#include <functional>

class QComboBox;
class QFormLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QCheckBox;
class QSpinBox;
class QToolButton;
class QMenu;

namespace mervak {

class MacroCatalogue;
class Template;
class WindowSystem;

// The Template's properties as the dialog edits them, `Pathdefault` included.
struct PlantFields {
    QString FitxGraf;
    QString Pathdefault;
    QString FitxClip;
    QString TxFinestra;
    QString Tecles;
    QString Ordres;
    QString FitxDoc;
    QString descripcio;
    int16_t SoundActive = 0; // -1 on, 0 off
    int16_t sv_idioma = 0;   // 0 Catalan, 1 Spanish
    int16_t sv_locutor = 0;
    int16_t SV_velocitat = 0;
    int16_t SheetWidthMm = 0;
    int16_t SheetHeightMm = 0;
    friend bool operator==(const PlantFields&, const PlantFields&) = default;
};

// The Template properties dialog, "Dades Inicials". Picking a program of the
// catalogue puts its command line in `Ordres` (">>> ALTRES" browses for one);
// picking a macro inserts its ActionText into `Tecles` at the cursor. Chosen
// files are stored relative to the Template's folder when they lie inside it.
// Controls carry the field names as object names ("FitxGraf", "sv_idioma", ...).
class PlantForm : public QDialog {
    Q_OBJECT
public:
    // The names of the speech engine's voices for sv_idioma (0 Catalan, 1 Spanish),
    // shown beside the voice number.
    using VoiceNames = std::function<QStringList(int16_t language)>;

    // Shows the dialog and waits. On "Acceptar", every field the user changed is
    // written to `t` (and `*pathDefault`; nullptr hides that row) and
    // t.Modified is set; true only when something changed. Cancelling, or
    // accepting with nothing changed, leaves both untouched.
    static bool edit(QWidget* parent, Template& t, WindowSystem& windows,
                     const MacroCatalogue& catalogue, Language language, QString* pathDefault,
                     VoiceNames voices = {});

    PlantForm(const Template& t, WindowSystem& windows, const MacroCatalogue& catalogue,
              Language language, const QString* pathDefault, QWidget* parent = nullptr,
              VoiceNames voices = {});

    // The values shown now.
    PlantFields fields() const;

    // Writes the fields that differ from those shown when the dialog opened;
    // sets t.Modified and returns true when there was any.
    bool applyTo(Template& t, QString* pathDefault) const;

    // Opens the list of the open windows under the pick-a-window button.
    void showWindowList();

private:
    void buildLayout(Language language, bool withPathDefault);
    QGroupBox* sheetGroup(Language language, bool withPathDefault);
    QGroupBox* programGroup(Language language);
    QGroupBox* speechGroup(Language language);
    QHBoxLayout* buttonRow(Language language);
    void addFormRow(QFormLayout* form, const char* caption, QWidget* buddy, QHBoxLayout* fields,
                    Language language);
    QHBoxLayout* sheetSizeRow();
    void alignLabels();
    void load(const Template& t, const QString* pathDefault);
    void fillPickers(Language language);
    void programPicked(int row);
    void macroPicked(int row);
    void refreshPreview();
    void refreshVoiceName();
    void browseFile(QLineEdit* field, const QString& title, const QString& filterName,
                    const QStringList& patterns);
    void browseFolder(QLineEdit* field);
    void openDocumentation();
    QString storedName(const QString& chosenPath) const;
    QString resolved(const QString& stored) const;

    WindowSystem& windows_;
    const MacroCatalogue& catalogue_;
    Language language_;
    QString templateFolder_; // empty for an untitled Template
    PlantFields initial_;

    QLineEdit* fitxGraf_;
    QLineEdit* pathDefault_;
    QLineEdit* fitxClip_;
    QLineEdit* txFinestra_;
    QLineEdit* tecles_;
    QLineEdit* ordres_;
    QLineEdit* fitxDoc_;
    QLineEdit* descripcio_;
    QCheckBox* soundActive_;
    QComboBox* svIdioma_;
    QSpinBox* svLocutor_;
    QLabel* voiceName_;
    VoiceNames voices_;
    QSpinBox* svVelocitat_;
    QLabel* speedWord_; // "lenta", "normal" or "ràpida"
    QSpinBox* sheetWidth_;
    QSpinBox* sheetHeight_;
    QComboBox* programs_;
    QComboBox* macros_;
    QToolButton* windowButton_;
    QMenu* windowMenu_;
    QLabel* preview_;
    QList<QLabel*> formLabels_; // the form rows' captions, aligned as one column
};

} // namespace mervak
