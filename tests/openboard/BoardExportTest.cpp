#include "openboard/BoardExport.h"

#include "openboard/BoardImport.h"
#include "openboard/GridLayout.h"
#include "openboard/ObfFormat.h"
#include "support/TestFiles.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

Area area(int page, SheetBox box, const char* actionText, std::optional<AreaCell> cell = {}) {
    Area a;
    a.Page = static_cast<int16_t>(page);
    a.X0 = static_cast<int16_t>(box.left);
    a.Y0 = static_cast<int16_t>(box.bottom);
    a.X1 = static_cast<int16_t>(box.right);
    a.Y1 = static_cast<int16_t>(box.top);
    a.ActionText = QString::fromUtf8(actionText);
    a.Cell = std::move(cell);
    return a;
}

// Page 1 a 2 x 2 grid with a hole and gaps between cells; page 2 free-standing
// Areas, one stored with its corners swapped; page 3 empty.
class BoardExportTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    Template t;

    void SetUp() override {
        test::writeAll(dir.filePath("gos.png"), "\x89PNG dog");
        t.PageCount = 3;
        t.descripcio = QStringLiteral("Animals");
        t.TxFinestra = QStringLiteral("Writer");
        t.SheetWidthMm = 297;
        t.AppendArea(area(1, {2, 62, 58, 118}, "gos {|Llegir el gos}",
                          AreaCell{"gos.png", "gos", LabelPlacement::Above, 0xFFCC00, 0x000000}));
        t.AppendArea(area(1, {62, 62, 118, 118}, "{|Pagina 2}",
                          AreaCell{"symbol:1F408", "", LabelPlacement::Below, {}, {}}));
        t.AppendArea(area(1, {62, 2, 118, 58}, "{|Sona miau.WAV}gat"));
        t.AppendArea(area(2, {100, 100, 10, 10}, "^c{|Pagina 1}"));
        t.AppendArea(area(2, {50, 50, 120, 120}, "{|Llegir a}{|Pagina 9}"));
        t.area(4).Flags = -1;
        t.area(4).Clip = QStringLiteral("retall.bmp");
    }

    BoardExport exported() const {
        return exportBoards(t, QStringLiteral("Animals"), PictureFiles{dir.path(), {}});
    }
};

// What other programs read: boards that read back, a grid or positions, ids
// unique in the package, links to boards of the package, every path present.
TEST_F(BoardExportTest, FollowsTheFormatsRules) {
    const BoardExport result = exported();
    const auto bytes = writeObz(result.package);
    ASSERT_TRUE(std::holds_alternative<QByteArray>(bytes));
    const ZipEntries zip = readZip(std::get<QByteArray>(bytes)).value();
    const QJsonObject manifest = QJsonDocument::fromJson(zip["manifest.json"]).object();
    EXPECT_EQ(manifest["format"].toString(), "open-board-0.1");
    EXPECT_EQ(manifest["root"].toString(), "boards/1.obf");
    QSet<QString> buttonIds;
    QSet<QString> imageIds;
    for (const char* kind : {"boards", "images"})
        for (const QJsonValue path : manifest["paths"][kind].toObject())
            EXPECT_TRUE(zip.contains(path.toString())) << path.toString();
    QList<Board> boards;
    for (const QJsonValue path : manifest["paths"]["boards"].toObject()) {
        const QByteArray json = zip[path.toString()];
        EXPECT_EQ(QJsonDocument::fromJson(json)["format"].toString(), "open-board-0.1");
        auto board = readBoard(json, path.toString());
        ASSERT_TRUE(std::holds_alternative<Board>(board)) << path.toString();
        boards.append(std::get<Board>(board));
        for (const BoardButton& b : boards.last().buttons) {
            EXPECT_FALSE(buttonIds.contains(b.id)) << b.id;
            buttonIds.insert(b.id);
            if (b.loadBoard) {
                EXPECT_TRUE(zip.contains(b.loadBoard->path)) << b.loadBoard->path;
            }
        }
        for (const BoardMedia& image : boards.last().images) {
            EXPECT_FALSE(imageIds.contains(image.id)) << image.id;
            imageIds.insert(image.id);
            EXPECT_TRUE(zip.contains(image.path)) << image.path;
        }
    }
    ASSERT_EQ(boards.size(), 3);
    const Board& grid = boards[0];
    EXPECT_EQ(grid.grid, (BoardGrid{2, 2, {{"1", "2"}, {"", "3"}}}));
    EXPECT_EQ(grid.buttons[0].label, "gos");
    EXPECT_EQ(grid.buttons[0].vocalization, "el gos");
    EXPECT_EQ(grid.buttons[0].backgroundColor, "rgb(255, 204, 0)");
    EXPECT_EQ(zip[grid.image(grid.buttons[0].imageId)->path], "\x89PNG dog");
    EXPECT_EQ(grid.buttons[1].loadBoard->id, "2");
    EXPECT_EQ(grid.buttons[2].label, "gat");
    const Board& free = boards[1];
    EXPECT_EQ(free.buttons[0].position, (BoardPosition{10 / 120.0, 20 / 120.0, 0.75, 0.75}));
    EXPECT_EQ(free.grid->order, (QList<QStringList>{{"5", "4"}}));
    EXPECT_FALSE(free.buttons[1].loadBoard.has_value()); // page 9 does not exist
    EXPECT_EQ(boards[2].grid, (BoardGrid{1, 1, {{""}}}));
    ASSERT_EQ(result.notes.size(), 1); // the symbol: no library given
    EXPECT_EQ(result.notes[0].kind, BoardNote::Kind::SymbolNotFound);
}

// Template -> .obz -> Template keeps every Area, its text, page link and cell
// (pictures come back as files of the new picture folder).
TEST_F(BoardExportTest, RoundTripKeepsTheTemplate) {
    const auto bytes = writeObz(exported().package);
    const auto package = readObz(std::get<QByteArray>(bytes), QStringLiteral("a.obz"));
    ASSERT_TRUE(std::holds_alternative<BoardPackage>(package));
    const auto result = importBoards(std::get<BoardPackage>(package), QStringLiteral("pics"));
    ASSERT_TRUE(std::holds_alternative<BoardImport>(result));
    const BoardImport& back = std::get<BoardImport>(result);
    EXPECT_EQ(back.tmpl.PageCount, t.PageCount);
    EXPECT_EQ(back.tmpl.TxFinestra, t.TxFinestra);
    EXPECT_EQ(back.tmpl.SheetWidthMm, 297);
    ASSERT_EQ(back.tmpl.AreaCount(), t.AreaCount());
    for (int i = 1; i <= t.AreaCount(); ++i) {
        Area expected = t.area(i);
        if (i == 1)
            expected.Cell->Picture = QStringLiteral("pics/gos.png");
        EXPECT_EQ(back.tmpl.area(i), expected) << i;
    }
    ASSERT_EQ(back.pictures.size(), 1);
    EXPECT_EQ(back.pictures[0].bytes, "\x89PNG dog");
}

// A board changed in another program since is read as it is now.
TEST_F(BoardExportTest, ChangesMadeElsewhereWin) {
    BoardPackage package = exported().package;
    Board& board = package.boards[0];
    board.buttons[0].vocalization = QStringLiteral("guau");
    std::swap(board.grid->order[0][0], board.grid->order[1][0]);
    const auto result = importBoards(package, QStringLiteral("pics"));
    const Template& back = std::get<BoardImport>(result).tmpl;
    EXPECT_EQ(back.area(1).ActionText, "{|Pagina 2}"); // reading order: the moved button is second
    EXPECT_EQ(back.area(2).ActionText, "guau {|Llegir guau}");
    EXPECT_EQ((SheetBox{back.area(2).X0, back.area(2).Y0, back.area(2).X1, back.area(2).Y1}),
              (SheetBox{0, 0, 60, 60}));
}

} // namespace
} // namespace mervak
