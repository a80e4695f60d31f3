#include "app/BoardExchange.h"

#include "editor/widgets/Dialogs.h"
#include "openboard/OpenBoardFile.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

namespace {

// At most this many notes are listed; a long list says how many more there are.
constexpr qsizetype kNotesShown = 12;

void showNotes(QWidget* parent, Language language, const QString& heading,
               const QList<BoardNote>& notes) {
    if (notes.isEmpty())
        return;
    QStringList lines{TranslateCaption(language, heading)};
    for (qsizetype i = 0; i < notes.size() && i < kNotesShown; ++i)
        lines.append(QStringLiteral("• ") + boardNoteText(language, notes[i]));
    if (notes.size() > kNotesShown)
        lines.append(TranslateCaption(language, QStringLiteral("... i %1 més"))
                         .arg(notes.size() - kNotesShown));
    showNotice(parent, language, lines.join(u'\n'));
}

} // namespace

FileFilter boardFilter(bool packageOnly) {
    return {QStringLiteral("Taulers de comunicació (Open Board)"),
            packageOnly ? QStringList{QStringLiteral("*.obz")}
                        : QStringList{QStringLiteral("*.obf"), QStringLiteral("*.obz")}};
}

bool isBoardFile(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QLatin1String("obf") || suffix == QLatin1String("obz");
}

QString importBoardWithDialog(QWidget* parent, Language language, const QString& boardPath) {
    const QFileInfo board(boardPath);
    const QString templatePath =
        chooseFileToSave(parent, language, QStringLiteral("Desar la plantilla importada"),
                         {{QStringLiteral("Tauleta Windows"), {QStringLiteral("*.mvw")}}},
                         board.dir().filePath(board.completeBaseName() + QStringLiteral(".mvw")),
                         QStringLiteral("mvw"));
    if (templatePath.isEmpty())
        return {};
    const BoardFileOutcome outcome = importBoardFile(boardPath, templatePath);
    if (outcome.error) {
        showNotice(parent, language, boardErrorText(language, *outcome.error), true);
        return {};
    }
    showNotes(parent, language, QStringLiteral("Del tauler no s'ha pogut portar:"), outcome.notes);
    return templatePath;
}

bool exportBoardReporting(QWidget* parent, Language language, const Template& t,
                          const QString& path, const PictureFiles& pictures) {
    const QString title = !t.descripcio.isEmpty() ? t.descripcio
                          : t.isUntitled()        ? QFileInfo(path).completeBaseName()
                                           : QFileInfo(t.TemplateFileName).completeBaseName();
    const BoardFileOutcome outcome = exportBoardFile(t, path, title, pictures);
    if (outcome.error) {
        showNotice(parent, language, boardErrorText(language, *outcome.error), true);
        return false;
    }
    showNotes(parent, language, QStringLiteral("Els altres programes no veuran:"), outcome.notes);
    return true;
}

} // namespace mervak
