#pragma once

#include <QString>
#include <QStringList>

namespace mervak {

// The language of the user interface. Forms are designed with Catalan captions;
// Spanish is reached by translating them.
enum class Language { Catalan, Spanish };

// The "IDIOMA" setting: exactly "ESPAÑOL" gives Spanish; any other value,
// "español" and "ESPANOL" included, gives Catalan.
Language languageFromSetting(const QString& value);

// The value stored for a language: "CATALA" or "ESPAÑOL".
QString languageSettingValue(Language language);

// The numbered user-interface text in the language: numbers 0..21, 39..44,
// 72..74 and 101..116 have one; every other number gives the empty string.
// Texts are kept exactly as they have always read, misspellings, doubled and
// trailing blanks included. Message 6, the About text, starts with a lone
// carriage return and separates its lines with CR LF.
QString Message(Language language, int number);

// The numbers of the messages the program shows by name.
namespace Msg {
enum Number : int {
    WrongFormat = 2, // "Format incorrecte"
    ReadError = 3,   // "Error en llegir el fitxer " + path
    SaveChanges = 5, // the Template was changed: save it?
    AboutText = 6,
    AboutTitle = 7,
    ProgramPrompt = 11, // ">>> tria un programa"
    OtherProgram = 12,  // ">>> ALTRES"
    MacroPrompt = 13,   // ">>> Tria una macro"
    NewerVersion = 14,  // the file was made by a newer version
    FileNotFound = 15,  // "... no troba el fitxer " + path
    PictureFiles = 39,
    SoundFiles = 40,
    AllFiles = 44,
    TrackerNotStarted = 72,    // "No s'ha pogut  iniciar l'Vistal"
    TrackerNotCalibrated = 73, // "No s'ha calibrat l'Vistal"
    CalibrationDone = 74,      // "Calibrat acabat?"
    GeneralError = 104,        // "Error": a file could not be written
    CalibrationCorrect = 105,  // as 74 in Catalan, "Calibrado correcto?" in Spanish
    TrackerRunning = 106,      // "Vistal  ja s'està executant!"
    ConfirmPageDelete = 107,
    AlreadyRunning = 108,
    PictureNotLoaded = 110,
    TabletNotFound = 113,
};
} // namespace Msg

// `text` with "%1".."%9" replaced by `arguments` in one pass, so that a "%" inside an
// argument (key runs are full of them) is never read as a marker, and a marker
// without its argument stays as it is.
QString withArguments(QStringView text, const QStringList& arguments);

// The caption a control shows in the language: in Spanish, the partner of the
// Catalan caption (compared exactly, "&" access-key marker and case included),
// or the caption unchanged when the dictionary has no partner; in Catalan,
// always the caption unchanged.
QString TranslateCaption(Language language, const QString& catalanCaption);

// The Catalan captions the dictionary knows, in dictionary order.
QStringList captionKeys();

} // namespace mervak
