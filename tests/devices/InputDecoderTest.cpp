#include "devices/InputDecoder.h"

#include "devices/EvemuFormat.h"
#include "devices/InputDevice.h"
#include "support/TestFiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

InputCapabilities device(std::initializer_list<int> keys, std::initializer_list<int> axes,
                         int32_t minimum, int32_t maximum, bool direct = false) {
    InputCapabilities capabilities;
    for (int key : keys)
        capabilities.keys.set(key);
    for (int axis : axes)
        capabilities.axes[axis] = AbsAxis{minimum, maximum, minimum + (maximum - minimum) / 2};
    capabilities.properties.set(INPUT_PROP_DIRECT, direct);
    return capabilities;
}

const InputCapabilities kPen =
    device({BTN_TOUCH, BTN_TOOL_PEN, BTN_STYLUS}, {ABS_X, ABS_Y}, 0, 1000);
const InputCapabilities kTouch =
    device({BTN_TOUCH},
           {ABS_X, ABS_Y, ABS_MT_SLOT, ABS_MT_TRACKING_ID, ABS_MT_POSITION_X, ABS_MT_POSITION_Y}, 0,
           1000, true);
const InputCapabilities kTouchpad =
    device({BTN_TOUCH, BTN_LEFT, BTN_TOOL_FINGER}, {ABS_X, ABS_Y}, 0, 1000);
const InputCapabilities kStick = device({BTN_TRIGGER, BTN_THUMB}, {ABS_X, ABS_Y}, 0, 254);
const InputCapabilities kPad =
    device({BTN_TRIGGER, BTN_THUMB, BTN_THUMB2, BTN_TOP, BTN_TOP2}, {ABS_HAT0X, ABS_HAT0Y}, -1, 1);

// Events in short words: "touch=1" (a key), "x=500" (an axis), "|" ends a reading.
std::vector<InputEvent> events(const QString& script) {
    static const QHash<QString, std::pair<uint16_t, uint16_t>> names = {
        {"touch", {EV_KEY, BTN_TOUCH}},
        {"pen", {EV_KEY, BTN_TOOL_PEN}},
        {"b1", {EV_KEY, BTN_TRIGGER}},
        {"b3", {EV_KEY, BTN_THUMB2}},
        {"x", {EV_ABS, ABS_X}},
        {"y", {EV_ABS, ABS_Y}},
        {"slot", {EV_ABS, ABS_MT_SLOT}},
        {"id", {EV_ABS, ABS_MT_TRACKING_ID}},
        {"mx", {EV_ABS, ABS_MT_POSITION_X}},
        {"my", {EV_ABS, ABS_MT_POSITION_Y}},
        {"hatx", {EV_ABS, ABS_HAT0X}},
        {"haty", {EV_ABS, ABS_HAT0Y}}};
    std::vector<InputEvent> out;
    for (const QString& word : script.split(u' ', Qt::SkipEmptyParts)) {
        if (word == u"|") {
            out.push_back({0, EV_SYN, SYN_REPORT, 0});
            continue;
        }
        const auto [type, code] = names.value(word.section(u'=', 0, 0));
        out.push_back({0, type, code, word.section(u'=', 1).toInt()});
    }
    return out;
}

QString readings(InputDecoder& decoder, const QString& script) {
    QStringList out;
    for (const InputEvent& event : events(script))
        if (event.type == EV_SYN) {
            decoder.feed(event);
            const PressPoint p = decoder.press();
            const auto c = decoder.contact();
            out << (p != PressPoint{} ? QStringLiteral("%1,%2").arg(p.x).arg(p.y)
                    : c               ? QStringLiteral("-@%1,%2").arg(c->x()).arg(c->y())
                                      : QStringLiteral("-"));
        } else {
            decoder.feed(event);
        }
    return out.join(u' ');
}

TEST(InputDecoderTest, PressesOnTheSheet) {
    const SheetFrame calibrated{100, 100, 900, 900, false, false};
    const SheetFrame mirrored{100, 100, 900, 900, true, false};
    struct Row {
        const char* what;
        InputKind kind;
        const InputCapabilities& device;
        std::optional<SheetFrame> frame; // none: the whole area
        const char* events;
        const char* presses;
    } rows[] = {
        {"pen in proximity is no press", InputKind::Pointing, kPen, {}, "pen=1 x=500 y=500 |", "-"},
        {"pen down, move, up",
         InputKind::Pointing,
         kPen,
         {},
         "pen=1 x=500 y=500 touch=1 | x=1000 y=0 | x=0 y=1000 | touch=0 |",
         "60,60 119,119 1,1 -"},
        {"outside the calibrated sheet", InputKind::Pointing, kPen, calibrated,
         "x=50 y=500 touch=1 | x=900 y=100 |", "-@50,500 119,119"},
        {"mirrored calibration", InputKind::Pointing, kPen, mirrored,
         "x=100 y=100 touch=1 | x=900 y=900 |", "119,119 1,1"},
        {"the first finger counts, until all lift",
         InputKind::Pointing,
         kTouch,
         {},
         "slot=0 id=1 mx=0 my=0 touch=1 | slot=1 id=2 mx=1000 my=1000 | slot=0 id=-1 | "
         "slot=1 mx=500 | slot=1 id=-1 touch=0 | slot=0 id=3 mx=1000 my=0 touch=1 |",
         "1,119 1,119 - - - 119,119"},
        {"a joystick at rest, then a button held",
         InputKind::Joystick,
         kStick,
         {},
         "| b1=1 | x=254 y=0 | b1=0 |",
         "- 60,60 119,119 -"},
        {"dance pad: last button held, then the hat",
         InputKind::DancePad,
         kPad,
         {},
         "b1=1 | b3=1 | b3=0 | b1=0 | hatx=1 haty=1 | hatx=0 haty=0 |",
         "20,60 60,100 20,60 - 100,20 -"},
    };
    QTemporaryDir home;
    const DancePadCells cells = readDancePadCells(PrivateProfile(home.filePath("MERVAK.INI")));
    for (const Row& row : rows) {
        InputDecoder decoder(row.kind, row.device,
                             row.frame.value_or(InputDecoder::wholeArea(row.kind, row.device)),
                             cells);
        EXPECT_EQ(readings(decoder, row.events), row.presses) << row.what;
    }
}

TEST(InputDecoderTest, DevicesServeTheirKinds) {
    const auto kinds = [](const InputCapabilities& c) {
        QString out;
        for (const auto& [kind, letter] : {std::pair{InputKind::Pointing, 'P'},
                                           {InputKind::Joystick, 'J'},
                                           {InputKind::DancePad, 'D'}})
            if (servesAs(c, kind))
                out += QLatin1Char(letter);
        return out;
    };
    EXPECT_EQ(kinds(kPen), "P");
    EXPECT_EQ(kinds(kTouch), "P");
    EXPECT_EQ(kinds(kTouchpad), "");
    EXPECT_EQ(kinds(kStick), "JD");
    EXPECT_EQ(kinds(kPad), "D");
}

// The calibration and the pad's cells live in MERVAK.INI and survive a round trip.
TEST(InputDecoderTest, CalibrationAndCellsAreReadFromTheSettings) {
    QTemporaryDir home;
    const PrivateProfile file(home.filePath("MERVAK.INI"));
    test::writeAll(home.filePath("MERVAK.INI"), "[DANCEPAD]\r\nBoto1=5\r\nBoto2=12\r\n");
    const SheetFrame frame{10, 20, 30, 40, true, false};
    ASSERT_TRUE(writeSheetFrame(file, "GENIUS", frame));
    const SheetFrame read = readSheetFrame(file, "GENIUS", {});
    EXPECT_EQ(
        std::tie(read.left, read.top, read.right, read.bottom, read.mirrorX, read.mirrorY),
        std::tie(frame.left, frame.top, frame.right, frame.bottom, frame.mirrorX, frame.mirrorY));
    const DancePadCells cells = readDancePadCells(file);
    EXPECT_EQ(cells[1], 5);
    EXPECT_EQ(cells[2], 0) << "out of range: no cell";
    EXPECT_EQ(cells[3], 2) << "default";
}

// A touch screen recorded by evemu-record, replayed through the whole device.
TEST(InputDecoderTest, ARecordingIsReplayedAsTheDevice) {
    QTemporaryDir home;
    InputDevice device;
    QSignalSpy finished(&device, &InputDevice::startFinished);
    QSignalSpy presses(&device, &InputDevice::positionArrived);
    device.start("DIL", test::dataPath("evdev/touchscreen.evemu"), home.filePath("MERVAK.INI"));
    ASSERT_TRUE(finished.wait());
    EXPECT_TRUE(finished.first().first().toBool());
    while (presses.size() < 4 && presses.wait()) {
    }
    QStringList seen;
    for (const auto& args : presses) {
        const auto p = args.first().value<PressPoint>();
        seen << QStringLiteral("%1,%2").arg(p.x).arg(p.y);
    }
    EXPECT_EQ(seen.join(u' '), "60,60 0,0 1,1 0,0");
}

TEST(InputDecoderTest, ABadStartNamesTheDevice) {
    QTemporaryDir home;
    const QString garbage = home.filePath("notes.txt");
    test::writeAll(garbage, "hello\n");
    for (const QString& port : {home.filePath("missing.evemu"), garbage}) {
        InputDevice device;
        QSignalSpy finished(&device, &InputDevice::startFinished);
        device.start("DANCEPAD", port, home.filePath("MERVAK.INI"));
        ASSERT_EQ(finished.size(), 1) << port;
        EXPECT_FALSE(finished.first().first().toBool());
        EXPECT_TRUE(finished.first().last().toString().contains(port)) << port;
    }
}

} // namespace
} // namespace mervak
