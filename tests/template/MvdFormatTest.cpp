#include "template/MvdFormat.h"

#include "support/TestFiles.h"
#include "template/LegacyKeyTable.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;
using test::readAll;

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

struct KeyRow {
    int code;
    const char* ctrl;
    const char* sends;
};

TEST(LegacyKeyTable, HoldsTheKnownRows) {
    const KeyRow rows[] = {
        {1, "^A", ""},          {2, "^B", ""},         {5, "^", ""},          {9, "^I", "{TAB}"},
        {10, "^J", "^{ENTER}"}, {13, "^M", "{ENTER}"}, {14, "^N", "{BS}"},    {15, "^O", "+{TAB}"},
        {16, "^P", "%Q"},       {17, "^Q", "%W"},      {18, "^R", "%E"},      {25, "^Y", "%P"},
        {26, "^Z", "%A"},       {34, "", "%L"},        {35, "", "%Z"},        {41, "", "%M"},
        {42, "", " "},          {43, "", "!"},         {53, "", "{+}"},       {47, "", "{%}"},
        {75, "", "A"},          {136, "", "{~}"},      {137, "", "{F1}"},     {146, "", "{F10}"},
        {147, "", "{HOME}"},    {148, "", "{UP}"},     {149, "", "{PGDN}"},   {150, "", "{RIGHT}"},
        {159, "", "{F12}"},     {160, "", "\xc2\xa0"}, {224, "", "\xc3\xa0"}, {231, "", "\xc3\xa7"},
        {183, "", "\xc2\xb7"},  {0, "", ""},           {256, "", ""},
    };
    const auto& table = legacyKeyTable();
    EXPECT_EQ(table.size(), 257u);
    for (const auto& row : rows) {
        EXPECT_EQ(table[row.code].ctrl, QString::fromUtf8(row.ctrl)) << row.code;
        EXPECT_EQ(table[row.code].sends, QString::fromUtf8(row.sends)) << row.code;
    }
    EXPECT_EQ(legacyKeyText(16), QStringLiteral("%Q"));
    EXPECT_EQ(legacyKeyText(3), QStringLiteral("^C"));
}

TEST(LegacyKeyTable, EveryByteCodeHasOneDistinctText) {
    QSet<QString> seen;
    for (int code = 1; code <= 255; ++code) {
        EXPECT_FALSE(legacyKeyText(code).isEmpty()) << code;
        EXPECT_FALSE(seen.contains(legacyKeyText(code))) << code;
        seen.insert(legacyKeyText(code));
    }
}

TEST(MvdFormat, ReadsTheGoldenFile) {
    Template t;
    ASSERT_FALSE(readMvd(readAll(dataPath("template/golden.mvd")), t));
    EXPECT_EQ(t.PageCount, 3);
    ASSERT_EQ(t.AreaCount(), 2);
    const Area& first = t.area(1);
    EXPECT_EQ(first.X0, 10);
    EXPECT_EQ(first.Y0, 20);
    EXPECT_EQ(first.X1, 30);
    EXPECT_EQ(first.Y1, 40);
    EXPECT_EQ(first.Page, 1);
    EXPECT_EQ(first.ActionText, QStringLiteral("hola{ENTER}"));
    EXPECT_EQ(t.area(2).Page, 2);
    EXPECT_EQ(t.area(2).ActionText, QStringLiteral("^%Q{|Pagina 3}{F1}^Aà"));
}

struct KeyTextCase {
    const char* name;
    QByteArray keys;
    const char* text;
};

TEST(MvdFormat, KeyTextEndsAtADoubleZeroAndReadsPageChanges) {
    const KeyTextCase cases[] = {
        {"empty", QByteArray(), ""},
        {"page change first", QByteArray("\x00\x02", 2), "{|Pagina 2}"},
        {"page 255", QByteArray("\x00\xff", 2), "{|Pagina 255}"},
        {"zero ends", QByteArray("\x4b\x00\x00\x4c", 4), "A"},
        {"zero in the last byte ends", QByteArray(32, '\x4b') + QByteArray(1, '\0'),
         "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"},
        {"full without end", QByteArray(33, '\x4c'), "BBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBB"},
    };
    for (const auto& c : cases) {
        QByteArray area = record({1, 2, 3, 4, 1});
        area.replace(Mvd::kKeyTextStart, c.keys.size(), c.keys);
        Template t;
        ASSERT_FALSE(readMvd(header(2) + area, t)) << c.name;
        EXPECT_EQ(t.area(1).ActionText, QString::fromUtf8(c.text)) << c.name;
    }
}

struct BrokenMvd {
    const char* name;
    QByteArray bytes;
    int record;
};

TEST(MvdFormat, ContentThatDoesNotFitIsAWrongFormat) {
    const QByteArray area = record({1, 2, 3, 4, 1, 75});
    const BrokenMvd cases[] = {
        {"no bytes", QByteArray(), 0},
        {"one byte short", header(1) + area.left(37), 2},
        {"one byte over", header(1) + area + "x", 3},
        {"no header", area + area, 0},
        {"two headers", header(1) + area + header(2), 3},
        {"zero pages", header(0) + area, 1},
        {"area on page 0", header(1) + record({1, 2, 3, 4, 0, 75}), 2},
    };
    for (const auto& c : cases) {
        Template t;
        const auto error = readMvd(c.bytes, t);
        ASSERT_TRUE(error) << c.name;
        EXPECT_EQ(error->message, 2) << c.name;
        EXPECT_EQ(error->line, c.record) << c.name;
    }
}

Template templateOf(std::initializer_list<Area> areas, int16_t pages = 3) {
    Template t;
    t.PageCount = pages;
    for (const Area& a : areas)
        t.AppendArea(a);
    return t;
}

Area areaWith(const QString& text, int16_t page = 1, int16_t x0 = 1, int16_t y0 = 2,
              int16_t x1 = 100, int16_t y1 = 119) {
    Area a;
    a.X0 = x0;
    a.Y0 = y0;
    a.X1 = x1;
    a.Y1 = y1;
    a.Page = page;
    a.ActionText = text;
    return a;
}

TEST(MvdFormat, ExportReadsBackToTheSameAreas) {
    const Template t = templateOf({
        areaWith(QStringLiteral("hola{ENTER}"), 1, 0, 0, 255, 255),
        areaWith(QStringLiteral("^c^v%Q{TAB}+{TAB}{F10}{RIGHT}"), 2, 254),
        areaWith(QStringLiteral("{+}{%}{^}{~}{(}{)}{{}{}}{[}{]} àçñ·Ç"), 3),
        areaWith(QStringLiteral("{|Pagina 2}x{|Pagina 255}"), 1),
        areaWith(QString(), 2),
        areaWith(QStringLiteral("^{ENTER}{ESC}{DELETE}"), 3),
    });
    const MvdExport exported = writeMvd(t);
    EXPECT_TRUE(exported.losses.isEmpty());
    EXPECT_EQ(exported.bytes.size(), 7 * Mvd::kRecordSize);
    Template back;
    ASSERT_FALSE(readMvd(exported.bytes, back));
    EXPECT_EQ(back.PageCount, 3);
    ASSERT_EQ(back.AreaCount(), t.AreaCount());
    for (int i = 1; i <= t.AreaCount(); ++i)
        EXPECT_TRUE(back.area(i) == t.area(i)) << i << " " << back.area(i).ActionText.toStdString();
}

TEST(MvdFormat, ExportUsesTheShortestCodes) {
    const MvdExport exported = writeMvd(templateOf({areaWith(QStringLiteral("^A^{ENTER}"))}));
    EXPECT_EQ(exported.bytes.mid(Mvd::kRecordSize + Mvd::kKeyTextStart, 3),
              QByteArray("\x01\x0a\x00", 3));
}

struct LossCase {
    const char* name;
    Area area;
    MvdLoss::Kind kind;
    const char* text;
    const char* readBack; // the ActionText the import then gives
};

TEST(MvdFormat, ExportReportsWhatItCannotHold) {
    using K = MvdLoss::Kind;
    Area clip = areaWith(QStringLiteral("a"));
    clip.Clip = QStringLiteral("x.bmp");
    Area flags = areaWith(QStringLiteral("a"));
    flags.Flags = -1;
    const LossCase cases[] = {
        {"command block", areaWith(QStringLiteral("a{|Sona x.WAV}b")), K::KeysNotStored,
         "{|Sona x.WAV}", "ab"},
        {"nested block", areaWith(QStringLiteral("{|SIM 5 {a} {b}}c")), K::KeysNotStored,
         "{|SIM 5 {a} {b}}", "c"},
        {"unknown key name", areaWith(QStringLiteral("{F13}x")), K::KeysNotStored, "{F13}", "x"},
        {"lower-case key name", areaWith(QStringLiteral("{enter}")), K::KeysNotStored, "{enter}",
         ""},
        {"character outside the table", areaWith(QStringLiteral("a€b")), K::KeysNotStored, "€",
         "ab"},
        {"page 0 in a block", areaWith(QStringLiteral("{|Pagina 0}")), K::KeysNotStored,
         "{|Pagina 0}", ""},
        {"too long", areaWith(QString(40, u'x')), K::KeyTextCut, "xxxxxxx",
         "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        {"page block not split by the cut",
         areaWith(QString(32, u'x') + QStringLiteral("{|Pagina 2}")), K::KeyTextCut, "{|Pagina 2}",
         "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        {"X0 of 255", areaWith(QStringLiteral("a"), 1, 255), K::CoordinateCut, "X0=255", "a"},
        {"negative Y1", areaWith(QStringLiteral("a"), 1, 1, 2, 3, -4), K::CoordinateCut, "Y1=-4",
         "a"},
        {"clip", clip, K::ClipNotStored, "", "a"},
        {"flags", flags, K::ClipNotStored, "", "a"},
    };
    for (const auto& c : cases) {
        const MvdExport exported = writeMvd(templateOf({c.area}));
        ASSERT_EQ(exported.losses.size(), 1) << c.name;
        EXPECT_EQ(exported.losses[0].kind, c.kind) << c.name;
        EXPECT_EQ(exported.losses[0].area, 1) << c.name;
        EXPECT_EQ(exported.losses[0].text, QString::fromUtf8(c.text)) << c.name;
        Template back;
        ASSERT_FALSE(readMvd(exported.bytes, back)) << c.name;
        EXPECT_EQ(back.area(1).ActionText, QString::fromUtf8(c.readBack)) << c.name;
    }
}

TEST(MvdFormat, AnAreaOnAPageTheFormatCannotNameIsLeftOutAndReported) {
    Template t =
        templateOf({areaWith(QStringLiteral("a"), 300), areaWith(QStringLiteral("b"), 2)}, 300);
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
