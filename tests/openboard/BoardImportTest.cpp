#include "openboard/BoardImport.h"

#include "BoardTestFiles.h"
#include "openboard/GridLayout.h"
#include "openboard/OpenBoardFile.h"
#include "support/CliRun.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;
using test::readAll;

struct ExpectedArea {
    int page;
    SheetBox box; // left, bottom, right, top
    const char* actionText;
    const char* label;
    const char* picture; // inside the picture folder; empty for none
};

BoardImport imported(const std::variant<BoardPackage, BoardError>& package) {
    EXPECT_TRUE(std::holds_alternative<BoardPackage>(package));
    auto result = importBoards(std::get<BoardPackage>(package), QStringLiteral("pics"));
    EXPECT_TRUE(std::holds_alternative<BoardImport>(result));
    return std::get<BoardImport>(std::move(result));
}

void expectAreas(const Template& t, const std::vector<ExpectedArea>& expected) {
    ASSERT_EQ(t.AreaCount(), static_cast<int>(expected.size()));
    for (int i = 1; i <= t.AreaCount(); ++i) {
        const Area& a = t.area(i);
        const ExpectedArea& e = expected[i - 1];
        EXPECT_EQ(a.Page, e.page) << i;
        EXPECT_EQ((SheetBox{a.X0, a.Y0, a.X1, a.Y1}), e.box) << i;
        EXPECT_EQ(a.ActionText, QString::fromUtf8(e.actionText)) << i;
        ASSERT_TRUE(a.Cell.has_value()) << i;
        EXPECT_EQ(a.Cell->Label, QString::fromUtf8(e.label)) << i;
        const QString picture = QString::fromUtf8(e.picture);
        EXPECT_EQ(a.Cell->Picture, picture.isEmpty() ? picture : QStringLiteral("pics/") + picture)
            << i;
    }
}

QList<BoardNote::Kind> kinds(const QList<BoardNote>& notes) {
    QList<BoardNote::Kind> found;
    for (const BoardNote& note : notes)
        found.append(note.kind);
    return found;
}

// Reading order, empty slots and a button outside the grid leave no Area;
// numeric ids, unknown fields and colours of every notation are taken.
TEST(BoardImport, GridInReadingOrderWithEmptySlots) {
    const BoardImport result = imported(readBoardPackage(dataPath("openboard/grid-with-gaps.obf")));
    expectAreas(result.tmpl,
                {{1, {0, 60, 40, 120}, "poma {|Llegir poma}", "poma", "leaf.png"},
                 {1, {80, 60, 120, 120}, "vull aigua {|Llegir vull aigua}", "aigua", ""},
                 {1, {40, 0, 80, 60}, "gat {|Llegir gat}", "gat", ""},
                 {1, {80, 0, 120, 60}, " ", "a+b", ""}});
    EXPECT_EQ(result.tmpl.area(1).Cell->Background, CellColour(0xFFFF00));
    EXPECT_EQ(result.tmpl.area(1).Cell->Border, CellColour(0x0000FF));
    EXPECT_EQ(result.tmpl.area(2).Cell->Background, CellColour(0x808080)); // half black on white
    ASSERT_EQ(result.pictures.size(), 1);
    EXPECT_TRUE(result.pictures[0].bytes.startsWith("\x89PNG"));
    EXPECT_EQ(kinds(result.notes),
              (QList{BoardNote::Kind::PictureOnline, BoardNote::Kind::ColourUnknown}));
    EXPECT_EQ(result.notes[0].detail, "http://example.org/gat.png");
}

// The root first, then the boards it leads to; links become page changes,
// zipped pictures files, and a board laid out by positions keeps them.
TEST(BoardImport, PackageOfLinkedBoards) {
    const BoardImport result =
        imported(readObz(test::zippedFolder(QStringLiteral("package")), QStringLiteral("p.obz")));
    EXPECT_EQ(result.tmpl.PageCount, 3);
    expectAreas(result.tmpl, {{1, {0, 0, 40, 120}, "{|Pagina 2}", "menjar", ""},
                              {1, {40, 0, 80, 120}, "", "web", ""},
                              {1, {80, 0, 120, 120}, "hola {|Llegir hola}", "hola", ""},
                              {2, {0, 60, 120, 120}, "poma {|Llegir poma}", "poma", "apple.png"},
                              {2, {0, 0, 120, 60}, "{|Llegir tornem}{|Pagina 1}", "tornar", ""},
                              {3, {60, 90, 120, 120}, "dalt {|Llegir dalt}", "dalt", ""},
                              {3, {0, 0, 30, 30}, "baix {|Llegir baix}", "baix", ""}});
    EXPECT_EQ(result.pictures[0].bytes, readAll(dataPath("openboard/package/images/apple.png")));
    EXPECT_EQ(kinds(result.notes), QList{BoardNote::Kind::LinkOutside});
}

// Missing and broken parts of a package are refused, naming what and where.
TEST(BoardImport, BrokenPackagesAreRefused) {
    const QByteArray good = test::zippedFolder(QStringLiteral("package"));
    ZipEntries noRoot = readZip(good).value();
    noRoot.remove(QStringLiteral("boards/food.obf"));
    ZipEntries noGrid = readZip(good).value();
    noGrid[QStringLiteral("boards/food.obf")] = R"({"id":"f","buttons":[{"id":"p"}]})";
    const std::tuple<QByteArray, BoardError> cases[] = {
        {"not a zip", {BoardError::Kind::NotZip, "p.obz", {}, {}}},
        {writeZip({{"readme.txt", "x"}}).value(), {BoardError::Kind::NoBoard, "p.obz", {}, {}}},
        {writeZip(noRoot).value(),
         {BoardError::Kind::MissingEntry, "p.obz:manifest.json", {}, "boards/food.obf"}},
        {writeZip(noGrid).value(), {BoardError::Kind::MissingField, "boards/food.obf", "grid", {}}},
    };
    for (const auto& [bytes, expected] : cases) {
        const auto package = readObz(bytes, QStringLiteral("p.obz"));
        std::optional<BoardError> error;
        if (const auto* refused = std::get_if<BoardError>(&package)) {
            error = *refused;
        } else {
            const auto result = importBoards(std::get<BoardPackage>(package), {});
            if (const auto* notImported = std::get_if<BoardError>(&result))
                error = *notImported;
        }
        ASSERT_TRUE(error.has_value()) << expected.detail;
        EXPECT_EQ(error->kind, expected.kind) << expected.detail;
        EXPECT_EQ(error->file, expected.file);
        EXPECT_EQ(error->where, expected.where);
        if (expected.kind != BoardError::Kind::NotZip) {
            EXPECT_EQ(error->detail, expected.detail);
        }
    }
}

// The command line writes the Template and its pictures, or nothing at all.
TEST(BoardImport, CommandLineWritesAllOrNothing) {
    QTemporaryDir dir;
    const auto cli = [&dir](const QStringList& arguments) {
        return test::runProgram(QStringLiteral(MERVAK_CLI), arguments, dir.path());
    };
    const test::CliRun done =
        cli({"import", dataPath("openboard/grid-with-gaps.obf"), "-o", "m.mvw"});
    EXPECT_EQ(done.status, 3) << done.err; // the online picture and the colour are reported
    EXPECT_TRUE(done.err.contains("http://example.org/gat.png")) << done.err;
    EXPECT_TRUE(QFileInfo::exists(dir.filePath("m-imatges/leaf.png")));
    EXPECT_EQ(cli({"info", "m.mvw"}).status, 0);
    // A folder where the Template should go: its pictures are taken back.
    QDir(dir.path()).mkdir("taken.mvw");
    const test::CliRun refused =
        cli({"import", dataPath("openboard/grid-with-gaps.obf"), "-o", "taken.mvw"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_FALSE(QFileInfo::exists(dir.filePath("taken-imatges")));
    const test::CliRun broken =
        cli({"import", dataPath("openboard/package/manifest.json"), "-o", "x.mvw"});
    EXPECT_EQ(broken.status, 1);
    EXPECT_TRUE(broken.err.contains("no és un tauler .obf ni un paquet .obz")) << broken.err;
}

} // namespace
} // namespace mervak
