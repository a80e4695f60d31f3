#pragma once

#include "openboard/Board.h"
#include "openboard/BoardMessages.h"
#include "openboard/ZipArchive.h"

#include <variant>

namespace mervak {

// The boards of one .obf or .obz and the files they name.
struct BoardPackage {
    // The root board first, then the boards it leads to, nearest first, then
    // any others in path order: the order their pages take.
    QList<Board> boards;
    QStringList boardPaths; // each board's path inside the .obz; empty for a lone .obf
    ZipEntries files;       // every file of the .obz, pictures among them

    // The index of the board a link leads to, by path and then by id; -1 outside.
    qsizetype linkedBoard(const BoardLink& link) const;
};

// Reads a ".obf" or ".obz" file (by its extension, any case). An .obz names its
// root board in manifest.json; without a manifest its only board, or the first
// by path, is the root. Every path the manifest names must be in the archive.
std::variant<BoardPackage, BoardError> readBoardPackage(const QString& path);

// The same from bytes already read; `name` is the file's name in errors.
std::variant<BoardPackage, BoardError> readObf(const QByteArray& bytes, const QString& name);
std::variant<BoardPackage, BoardError> readObz(const QByteArray& bytes, const QString& name);

// An .obz of the package with its manifest: root is boards[0], every board at
// its path, every picture and sound with a path in `files`.
std::variant<QByteArray, BoardError> writeObz(const BoardPackage& package);

} // namespace mervak
