#include "devices/EasyPacket.h"

#include <gtest/gtest.h>
#include <random>

namespace mervak {
namespace {

QByteArray bytes(std::initializer_list<int> codes) {
    QByteArray b;
    for (int c : codes)
        b += static_cast<char>(c);
    return b;
}

TEST(EasyPacket, DecodesOnlyTheFirstWholePacketOfARead) {
    struct Case {
        const char* name;
        QByteArray read;
        int16_t marker;
        std::optional<PressPoint> position;
    };
    const Case cases[] = {
        {"two stray characters first", "xy^AB", 3, PressPoint{65, 66}},
        {"caret and one character", "^A", 1, std::nullopt},
        {"caret and two characters", "^AB", 1, PressPoint{65, 66}},
        {"caret alone", "^", 1, std::nullopt},
        {"nothing", "", 0, std::nullopt},
        {"no caret", "ABCDEF", 0, std::nullopt},
        {"cut short after strays", "xyz^A", 4, std::nullopt},
        {"two packets: first only", "^AB^CD", 1, PressPoint{65, 66}},
        {"caret as a coordinate", "^^^", 1, PressPoint{94, 94}},
        {"X of code 120", bytes({94, 120, 10}), 1, PressPoint{0, 0}},
        {"Y of code 120", bytes({94, 10, 120}), 1, PressPoint{0, 0}},
        {"both at 119", bytes({94, 119, 119}), 1, PressPoint{119, 119}},
        {"zero codes", bytes({94, 0, 0}), 1, PressPoint{0, 0}},
        {"high byte (euro sign)", bytes({94, 0x80, 5}), 1, PressPoint{0, 0}},
        {"byte 255", bytes({94, 5, 255}), 1, PressPoint{0, 0}},
        {"trailing bytes ignored", "^AB12345", 1, PressPoint{65, 66}},
    };
    for (const Case& c : cases) {
        const EasyReceive r = decodeEasyRead(c.read);
        EXPECT_EQ(r.rxMarker, c.marker) << c.name;
        EXPECT_EQ(r.position, c.position) << c.name;
    }
}

TEST(EasyPacket, KeepsTheReadAndTheTextFromTheCaret) {
    const EasyReceive whole = decodeEasyRead("xy^AB");
    EXPECT_EQ(whole.rxCopy, QStringLiteral("xy^AB"));
    EXPECT_EQ(whole.rxText, QStringLiteral("^AB"));

    const EasyReceive cut = decodeEasyRead("xy^A");
    EXPECT_EQ(cut.rxCopy, QStringLiteral("xy^A"));
    EXPECT_EQ(cut.rxText, QStringLiteral("xy^A"));

    const EasyReceive high = decodeEasyRead(bytes({0x80, 94, 1, 2}));
    EXPECT_EQ(high.rxCopy, QString::fromUtf8("€^\x01\x02"));
}

TEST(EasyPacket, RandomReadsGiveOnlyPositionsInRange) {
    std::mt19937 random(42);
    for (int i = 0; i < 20000; ++i) {
        QByteArray read(static_cast<qsizetype>(random() % 8), '\0');
        for (char& c : read)
            c = static_cast<char>(random() % 4 == 0 ? '^' : random() & 0xFF);
        const EasyReceive r = decodeEasyRead(read);
        EXPECT_EQ(r.rxCopy.size(), read.size()) << read.toHex().toStdString();
        if (!r.position)
            continue;
        EXPECT_GE(r.rxMarker, 1) << read.toHex().toStdString();
        EXPECT_TRUE(r.position->x >= 0 && r.position->x <= 119 && r.position->y >= 0 &&
                    r.position->y <= 119)
            << read.toHex().toStdString();
    }
}

TEST(EasyPacket, APacketSplitAcrossReadsIsLost) {
    EXPECT_FALSE(decodeEasyRead("^A").position);
    EXPECT_FALSE(decodeEasyRead("B").position);
}

TEST(EasyPacket, ACaretPastThe16BitMarkerDropsTheRead) {
    const QByteArray flood = QByteArray(40000, 'a') + "^AB";
    const EasyReceive r = decodeEasyRead(flood);
    EXPECT_EQ(r.rxMarker, 0);
    EXPECT_FALSE(r.position);

    const QByteArray justFits = QByteArray(32766, 'a') + "^AB";
    EXPECT_EQ(decodeEasyRead(justFits).rxMarker, 32767);
    EXPECT_EQ(decodeEasyRead(justFits).position, (PressPoint{65, 66}));
}

} // namespace
} // namespace mervak
