#include "template/MvdFormat.h"

#include "support/TestAreas.h"
#include "support/TestFiles.h"
#include "template/LegacyKeyTable.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::makeArea;

QByteArray record(std::initializer_list<int> bytes) {
    QByteArray r(Mvd::kRecordSize, '\0');
    int i = 0;
    for (int b : bytes)
        r[i++] = static_cast<char>(b);
    return r;
}

QByteArray header(int pages) {
    return record({255, 0, 0, pages});
}

// An Area inside the format's coordinates.
Area keys(const QString& text, int16_t page = 1) {
    return makeArea(1, 2, 100, 119, page, text);
}

Template templateOf(std::initializer_list<Area> areas, int16_t pages = 3) {
    Template t;
    t.PageCount = pages;
    for (const Area& a : areas)
        t.AppendArea(a);
    return t;
}

// The golden file reads a code from the start of each range; these are their ends.
TEST(LegacyKeyTable, EveryByteCodeHasOneDistinctText) {
    const std::pair<int, QString> rows[] = {
        {3, "^C"}, {41, "%M"}, {136, "{~}"}, {159, "{F12}"}, {255, "ÿ"}};
    for (const auto& [code, text] : rows)
        EXPECT_EQ(legacyKeyText(code), text) << code;
    QSet<QString> texts;
    for (int code = 1; code <= 255; ++code)
        texts.insert(legacyKeyText(code));
    EXPECT_EQ(texts.size(), 255);
    EXPECT_FALSE(texts.contains(QString()));
}

TEST(MvdFormat, ReadsTheGoldenFile) {
    Template t;
    ASSERT_FALSE(readMvd(test::readAll(test::dataPath("template/golden.mvd")), t));
    EXPECT_EQ(t.PageCount, 3);
    ASSERT_EQ(t.AreaCount(), 2);
    EXPECT_TRUE(t.area(1) == makeArea(10, 20, 30, 40, 1, "hola{ENTER}"));
    EXPECT_TRUE(t.area(2) == makeArea(0, 5, 119, 119, 2, "^%Q{|Pagina 3}{F1}^Aà"))
        << t.area(2).ActionText;
}

TEST(MvdFormat, KeyTextEndsAtADoubleZeroAndReadsPageChanges) {
    const struct {
        QByteArray keys;
        const char* text;
    } cases[] = {
        {QByteArray("\x00\x02", 2), "{|Pagina 2}"},
        {QByteArray("\x00\xff", 2), "{|Pagina 255}"},
        {QByteArray("\x4b\x00\x00\x4c", 4), "A"},
        {QByteArray(32, '\x4b') + QByteArray(1, '\0'), "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"},
        {QByteArray(33, '\x4c'), "BBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBB"},
    };
    for (const auto& c : cases) {
        QByteArray area = record({1, 2, 3, 4, 1});
        area.replace(Mvd::kKeyTextStart, c.keys.size(), c.keys);
        Template t;
        ASSERT_FALSE(readMvd(header(2) + area, t)) << c.text;
        EXPECT_EQ(t.area(1).ActionText, QString::fromUtf8(c.text));
    }
}

// The record where reading stopped; 0 for the file as a whole.
TEST(MvdFormat, ContentThatDoesNotFitIsAWrongFormat) {
    const QByteArray area = record({1, 2, 3, 4, 1, 75});
    const std::pair<QByteArray, int> cases[] = {
        {QByteArray(), 0},
        {header(1) + area.left(37), 2},
        {header(1) + area + "x", 3},
        {area + area, 0},
        {header(1) + area + header(2), 3},
        {header(0) + area, 1},
        {header(1) + record({1, 2, 3, 4, 0, 75}), 2},
    };
    for (const auto& [bytes, line] : cases) {
        Template t;
        const auto error = readMvd(bytes, t);
        ASSERT_TRUE(error) << bytes.size();
        EXPECT_EQ(error->message, 2);
        EXPECT_EQ(error->line, line) << bytes.size();
    }
}

TEST(MvdFormat, ExportReadsBackToTheSameAreas) {
    const Template t = templateOf({
        makeArea(0, 0, 255, 255, 1, "hola{ENTER}"),
        makeArea(254, 2, 100, 119, 2, "^c^v%Q{TAB}+{TAB}{F10}{RIGHT}"),
        keys("{+}{%}{^}{~}{(}{)}{{}{}}{[}{]} àçñ·Ç", 3),
        keys("{|Pagina 2}x{|Pagina 255}"),
        keys(QString(), 2),
    });
    const MvdExport exported = writeMvd(t);
    EXPECT_TRUE(exported.losses.isEmpty());
    EXPECT_EQ(exported.bytes.size(), 6 * Mvd::kRecordSize);
    Template back;
    ASSERT_FALSE(readMvd(exported.bytes, back));
    EXPECT_EQ(back.PageCount, 3);
    ASSERT_EQ(back.AreaCount(), t.AreaCount());
    for (int i = 1; i <= t.AreaCount(); ++i)
        EXPECT_TRUE(back.area(i) == t.area(i)) << i << " " << back.area(i).ActionText;
    EXPECT_EQ(writeMvd(templateOf({keys("^A^{ENTER}")}))
                  .bytes.mid(Mvd::kRecordSize + Mvd::kKeyTextStart, 3),
              QByteArray("\x01\x0a\x00", 3))
        << "the shortest codes";
}

TEST(MvdFormat, ExportReportsWhatItCannotHold) {
    using K = MvdLoss::Kind;
    Area clip = keys("a"), flags = keys("a");
    clip.Clip = QStringLiteral("x.bmp");
    flags.Flags = -1;
    const struct {
        Area area;
        MvdLoss::Kind kind;
        const char* text;
        const char* readBack; // the ActionText the import then gives
    } cases[] = {
        {keys("a{|Sona x.WAV}b"), K::KeysNotStored, "{|Sona x.WAV}", "ab"},
        {keys("{|SIM 5 {a} {b}}c"), K::KeysNotStored, "{|SIM 5 {a} {b}}", "c"},
        {keys("{F13}x"), K::KeysNotStored, "{F13}", "x"},
        {keys("{enter}"), K::KeysNotStored, "{enter}", ""},
        {keys("a€b"), K::KeysNotStored, "€", "ab"},
        {keys("{|Pagina 0}"), K::KeysNotStored, "{|Pagina 0}", ""},
        {keys(QString(40, u'x')), K::KeyTextCut, "xxxxxxx", "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        {keys(QString(32, u'x') + "{|Pagina 2}"), K::KeyTextCut, "{|Pagina 2}",
         "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        {makeArea(255, 2, 3, 4, 1, "a"), K::CoordinateCut, "X0=255", "a"},
        {makeArea(1, 2, 3, -4, 1, "a"), K::CoordinateCut, "Y1=-4", "a"},
        {clip, K::ClipNotStored, "", "a"},
        {flags, K::ClipNotStored, "", "a"},
    };
    for (const auto& c : cases) {
        const MvdExport exported = writeMvd(templateOf({c.area}));
        ASSERT_EQ(exported.losses.size(), 1) << c.text;
        EXPECT_EQ(exported.losses[0].kind, c.kind) << c.text;
        EXPECT_EQ(exported.losses[0].area, 1) << c.text;
        EXPECT_EQ(exported.losses[0].text, QString::fromUtf8(c.text));
        Template back;
        ASSERT_FALSE(readMvd(exported.bytes, back)) << c.text;
        EXPECT_EQ(back.area(1).ActionText, QString::fromUtf8(c.readBack)) << c.text;
    }
}

TEST(MvdFormat, AnAreaOnAPageTheFormatCannotNameIsLeftOutAndReported) {
    Template t = templateOf({keys("a", 300), keys("b", 2)}, 300);
    t.descripcio = QStringLiteral("x");
    const MvdExport exported = writeMvd(t);
    ASSERT_EQ(exported.losses.size(), 3);
    EXPECT_EQ(exported.losses[0].kind, MvdLoss::Kind::HeaderField);
    EXPECT_EQ(exported.losses[0].text, QStringLiteral("descripcio"));
    EXPECT_EQ(exported.losses[1].kind, MvdLoss::Kind::PageCountCut);
    EXPECT_EQ(exported.losses[2].kind, MvdLoss::Kind::PageOutOfRange);
    EXPECT_EQ(exported.losses[2].area, 1);
    Template back;
    ASSERT_FALSE(readMvd(exported.bytes, back));
    EXPECT_EQ(back.PageCount, 255);
    ASSERT_EQ(back.AreaCount(), 1);
    EXPECT_EQ(back.area(1).ActionText, QStringLiteral("b"));
}

} // namespace
} // namespace mervak
