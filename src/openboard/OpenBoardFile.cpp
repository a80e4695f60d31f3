#include "openboard/OpenBoardFile.h"

#include "openboard/BoardExport.h"
#include "openboard/BoardImport.h"
#include "platform/AtomicFile.h"
#include "template/MvwWriter.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

namespace {

// Removes what an import wrote before it failed.
void undo(const QStringList& created, const QString& folder, bool folderCreated) {
    for (const QString& file : created)
        QFile::remove(file);
    if (folderCreated)
        QDir().rmdir(folder);
}

BoardError writeError(const QString& path, const QString& reason) {
    return {BoardError::Kind::CannotWrite, path, {}, reason};
}

} // namespace

QString importedPictureFolder(const QString& templatePath) {
    return QFileInfo(templatePath).completeBaseName() + QStringLiteral("-imatges");
}

BoardFileOutcome importBoardFile(const QString& boardPath, const QString& templatePath) {
    BoardFileOutcome outcome;
    auto package = readBoardPackage(boardPath);
    if (auto* error = std::get_if<BoardError>(&package)) {
        outcome.error = *error;
        return outcome;
    }
    const QString pictureFolder = importedPictureFolder(templatePath);
    auto imported = importBoards(std::get<BoardPackage>(package), pictureFolder);
    if (auto* error = std::get_if<BoardError>(&imported)) {
        outcome.error = *error;
        return outcome;
    }
    BoardImport& result = std::get<BoardImport>(imported);
    outcome.notes = result.notes;
    const QString folder = QFileInfo(templatePath).absoluteDir().filePath(pictureFolder);
    const bool folderCreated = !result.pictures.isEmpty() && !QFileInfo::exists(folder);
    if (folderCreated && !QDir().mkpath(folder)) {
        outcome.error = writeError(folder, {});
        return outcome;
    }
    QStringList created;
    QString reason;
    for (const ImportedPicture& picture : result.pictures) {
        const QString path = QDir(folder).filePath(picture.fileName);
        const bool existed = QFileInfo::exists(path);
        if (!writeFileAtomically(path, picture.bytes, &reason)) {
            undo(created, folder, folderCreated);
            outcome.error = writeError(path, reason);
            return outcome;
        }
        if (!existed)
            created.append(path);
        outcome.written.append(path);
    }
    if (!writeFileAtomically(templatePath, writeMvw(result.tmpl), &reason)) {
        undo(created, folder, folderCreated);
        outcome.error = writeError(templatePath, reason);
        outcome.written.clear();
        return outcome;
    }
    outcome.written.append(templatePath);
    return outcome;
}

BoardFileOutcome exportBoardFile(const Template& t, const QString& obzPath, const QString& title,
                                 const PictureFiles& pictures) {
    BoardFileOutcome outcome;
    const BoardExport exported = exportBoards(t, title, pictures);
    outcome.notes = exported.notes;
    auto bytes = writeObz(exported.package);
    if (auto* error = std::get_if<BoardError>(&bytes)) {
        outcome.error = *error;
        outcome.error->file = obzPath;
        return outcome;
    }
    QString reason;
    if (!writeFileAtomically(obzPath, std::get<QByteArray>(bytes), &reason)) {
        outcome.error = writeError(obzPath, reason);
        return outcome;
    }
    outcome.written.append(obzPath);
    return outcome;
}

} // namespace mervak
