#include "scanning/Scanner.h"

#include "support/FakeClock.h"
#include "support/TestAreas.h"
#include "template/AreaHitTest.h"

#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using Mode = ScanSettings::Mode;

// A 2 x 2 page whose lower right Area changes to page 2, which holds one Area.
// The third Area speaks "ce" and sends scanning back to its row.
Template twoByTwo() {
    Template t;
    t.PageCount = 2;
    t.AppendArea(test::makeArea(0, 60, 59, 119, 1, "a"));
    t.AppendArea(test::makeArea(60, 60, 119, 119, 1, "b"));
    t.AppendArea(test::makeArea(0, 0, 59, 59, 1, "{|Llegir ce}{|Nivell -1}c"));
    t.AppendArea(test::makeArea(60, 0, 119, 59, 1, "{|Pagina 2}d"));
    t.AppendArea(test::makeArea(0, 0, 119, 119, 2, "e"));
    t.CurrentPage = 1;
    return t;
}

// Runs a script against a scanner on a fake clock and logs what it does:
// "hl:1,2" (the Areas highlighted, "-" for none), "press:N", "say:text".
// Script words: "+N" lets N ms pass (waking the scanner whenever it asked),
// "dS"/"uS"/"dA"/"uA" a select or advance switch down or up, "busy"/"idle"
// an ActionText starting or ending.
class Harness {
public:
    explicit Harness(const ScanSettings& settings)
        : scanner(clock,
                  {[this] { return scanRows(tmpl); }, [this] { return busy; },
                   [this](int16_t area) { return scanLabel(tmpl.area(area).ActionText); },
                   [this](int16_t area) { return scanLevelOf(tmpl.area(area).ActionText); }}) {
        QObject::connect(&scanner, &Scanner::highlightChanged, [this](const QList<int16_t>& areas) {
            QStringList names;
            for (const int16_t area : areas)
                names.append(QString::number(area));
            log.append(QStringLiteral("hl:") +
                       (names.isEmpty() ? QStringLiteral("-") : names.join(u',')));
        });
        QObject::connect(&scanner, &Scanner::pressRequested, [this](int16_t x, int16_t y) {
            const int16_t area = FindArea(tmpl, x, y).index;
            log.append(QStringLiteral("press:%1").arg(area));
            if (tmpl.area(area).ActionText.startsWith(QStringLiteral("{|Pagina 2}")))
                tmpl.CurrentPage = 2;
        });
        QObject::connect(&scanner, &Scanner::speakRequested, [this](const QString& text) {
            log.append(QStringLiteral("say:") + text);
        });
        scanner.setSettings(settings);
    }

    QString run(const QString& script) {
        for (const QString& word : script.split(u' ', Qt::SkipEmptyParts))
            step(word);
        return log.join(u' ');
    }

private:
    void step(const QString& word) {
        if (word.startsWith(u'+'))
            return pass(word.mid(1).toLongLong());
        if (word == u"busy" || word == u"idle") {
            busy = word == u"busy";
            return scanner.update();
        }
        const auto which = word.endsWith(u'A') ? Scanner::Switch::Advance : Scanner::Switch::Select;
        word.startsWith(u'd') ? scanner.switchDown(which) : scanner.switchUp(which);
    }

    void pass(std::int64_t ms) {
        const std::int64_t end = clock.monotonicMs() + ms;
        while (true) {
            const auto wake = scanner.nextWakeMs();
            if (!wake || *wake > end)
                break;
            clock.advanceMs(std::max<std::int64_t>(0, *wake - clock.monotonicMs()));
            scanner.update();
        }
        clock.advanceMs(end - clock.monotonicMs());
    }

public:
    test::FakeClock clock;
    Template tmpl = twoByTwo();
    bool busy = false;
    QStringList log;
    Scanner scanner;
};

struct ScanCase {
    const char* name;
    std::function<void(ScanSettings&)> set;
    const char* script;
    const char* expected;
};

TEST(ScannerTest, ScriptsGiveTheirHighlightsPressesAndSpeech) {
    const auto items = [](int switches) {
        return [switches](ScanSettings& s) {
            s.mode = Mode::Items;
            s.switches = switches;
            s.acceptanceMs = switches == 2 ? 0 : s.acceptanceMs;
        };
    };
    const auto rows = [](int switches) {
        return [switches](ScanSettings& s) {
            s.mode = Mode::Rows;
            s.switches = switches;
            s.acceptanceMs = 0;
        };
    };
    const ScanCase cases[] = {
        {"automatic: extra time on the first item, then rests after its loops",
         [&](ScanSettings& s) { items(1)(s), s.loops = 1; }, "+2499 +1 +1500 +1500 +1499 +1",
         "hl:1 hl:2 hl:3 hl:4 hl:-"},
        {"a rested highlight starts again at a press, choosing nothing",
         [&](ScanSettings& s) { items(1)(s), s.loops = 1; }, "+7000 dS +100 uS",
         "hl:1 hl:2 hl:3 hl:4 hl:- hl:1"},
        {"a press shorter than the acceptance time counts for nothing", items(1),
         "dS +99 uS +100 dS +100 uS", "hl:1 press:1"},
        {"presses in the pause after a choice count for nothing, held or not", items(1),
         "dS +100 uS +500 dS +100 uS +100 dS +600 uS +100 dS +100 uS", "hl:1 press:1 hl:1 press:1"},
        {"scanning starts again only once the ActionText has ended", items(1),
         "busy dS +100 uS +3000 idle", "hl:1 press:1 hl:1"},
        {"two switches: nothing shows until the first advance; a row is entered", rows(2),
         "dA uA dS uS +1000 dA uA dS uS +1000", "hl:- hl:1,2 hl:1 hl:2 press:2 hl:-"},
        {"the advance switch wraps after the last row", rows(2), "dA uA dA uA dA uA",
         "hl:- hl:1,2 hl:3,4 hl:1,2"},
        {"a long press backs out of the row",
         [&](ScanSettings& s) { rows(2)(s), s.longPressMs = 2000; },
         "dA uA dS uS +1000 dS +2000 uS", "hl:- hl:1,2 hl:1 hl:1,2"},
        {"an Area's level block backs out to its row after the press", rows(2),
         "dA uA dA uA dS uS +1000 dS uS +1000", "hl:- hl:1,2 hl:3,4 hl:3 press:3 hl:3,4"},
        {"a choice that changes page scans the new page", items(2),
         "dA uA dA uA dA uA dA uA dS uS +1000 dA uA", "hl:- hl:1 hl:2 hl:3 hl:4 press:4 hl:- hl:5"},
        {"automatic rows: a row left unchosen for its loops goes back to the rows",
         [&](ScanSettings& s) { rows(1)(s), s.loops = 1; }, "dS uS +3500 +1500",
         "hl:1,2 hl:1 hl:2 hl:1,2"},
        {"auditory scanning reads the row's and the item's labels",
         [&](ScanSettings& s) { rows(2)(s), s.speak = true; }, "dA uA dA uA dS uS",
         "hl:- hl:1,2 say:a, b hl:3,4 say:ce, d hl:3 say:ce"},
    };
    for (const ScanCase& c : cases) {
        ScanSettings settings;
        c.set(settings);
        Harness harness(settings);
        EXPECT_EQ(harness.run(QString::fromUtf8(c.script)), QString::fromUtf8(c.expected))
            << c.name;
    }
}

TEST(ScannerTest, TurnedOffItClearsTheHighlightAndIgnoresSwitches) {
    ScanSettings settings;
    settings.mode = Mode::Items;
    Harness harness(settings);
    harness.scanner.setSettings(ScanSettings{});
    EXPECT_EQ(harness.run(QStringLiteral("dS +200 uS +5000")), QStringLiteral("hl:1 hl:-"));
}

} // namespace
} // namespace mervak
