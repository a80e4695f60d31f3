#include "app/ScanningController.h"

#include "support/EffectLog.h"
#include "support/FakeClock.h"
#include "support/FakeSpeech.h"
#include "support/TestAreas.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// Takes every switch it is given and lets the test press them.
class FakeSwitchGrab : public SwitchGrab {
public:
    QStringList grab(const QStringList& names, Handler handler) override {
        grabbed = names;
        handler_ = std::move(handler);
        return {};
    }
    void release() override { grabbed.clear(); }
    void press(const QString& name, bool down) { handler_(int(grabbed.indexOf(name)), down); }

    QStringList grabbed;

private:
    Handler handler_;
};

// Two switch keys and auditory scanning, through the program's speech path: the
// highlighted item is read aloud, and a choice presses only once the switch is
// let go (a held grabbed key would swallow the keys typed meanwhile).
TEST(ScanningControllerTest, ReadsTheHighlightAndPressesOnceTheSwitchIsLetGo) {
    Session session(QStringLiteral("/nonexistent"));
    session.tmpl.AppendArea(test::makeArea(0, 0, 59, 119, 1, "sol"));
    session.tmpl.AppendArea(test::makeArea(60, 0, 119, 119, 1, "{|Llegir la lluna}lluna"));
    session.tmpl.CurrentPage = 1;
    test::FakeClock clock;
    test::EffectLog log;
    test::FakeSpeech speech(&log);
    FakeSwitchGrab grab;
    SheetView sheet;
    ScanningController controller(
        session, clock, grab, &sheet,
        {[&](int16_t x, int16_t y) { log.add(QStringLiteral("press %1 %2").arg(x).arg(y)); },
         [&](const QString& text) { speech.speak(text, 0); }, [] { return false; },
         [&] { log.add(QStringLiteral("sheet shown")); },
         [&](const QString& text) { log.add(text); }});
    ScanSettings settings;
    settings.mode = ScanSettings::Mode::Items;
    settings.switches = 2;
    settings.acceptanceMs = 0;
    settings.speak = true;
    controller.setUserSettings(settings);
    EXPECT_EQ(grab.grabbed, QStringList({QStringLiteral("F5"), QStringLiteral("F6")}));

    for (const char* name : {"F5", "F5"}) {
        grab.press(QString::fromLatin1(name), true);
        grab.press(QString::fromLatin1(name), false);
    }
    grab.press(QStringLiteral("F6"), true);
    log.add(QStringLiteral("let go"));
    grab.press(QStringLiteral("F6"), false);
    EXPECT_EQ(log.lines, QStringList({"sheet shown", "speak 0 sol", "speak 0 la lluna", "let go",
                                      "press 89 59"}));
}

} // namespace
} // namespace mervak
