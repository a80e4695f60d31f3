#include "FuzzCheck.h"
#include "openboard/BoardImport.h"
#include "openboard/ObfFormat.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

// Any bytes either fail with an error that says where, or give a board that
// writes and reads back to the same board, and that imports as a Template or
// with an error.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    auto read = readBoard(bytes, QStringLiteral("f.obf"));
    if (const auto* error = std::get_if<BoardError>(&read)) {
        fuzzCheck(error->file == QLatin1String("f.obf"), "error without its file");
        return 0;
    }
    const Board& board = std::get<Board>(read);
    const auto back = readBoard(writeBoard(board), QStringLiteral("f.obf"));
    fuzzCheck(std::holds_alternative<Board>(back), "written board does not read back");
    fuzzCheck(std::get<Board>(back) == board, "written board reads back different");
    BoardPackage package;
    package.boards.append(board);
    package.boardPaths.append(QString());
    const auto imported = importBoards(package, QStringLiteral("pics"));
    if (const auto* result = std::get_if<BoardImport>(&imported))
        fuzzCheck(result->tmpl.PageCount == 1, "one board is not one page");
    return 0;
}
