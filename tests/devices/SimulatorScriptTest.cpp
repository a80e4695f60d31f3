#include "SimScript.h"
#include "TabletResponder.h"

#include <gtest/gtest.h>

namespace mervak::sim {
namespace {

TEST(SimulatorScript, ParsesCommandsAndPointsAtWhatIsWrong) {
    using K = SimStep::Kind;
    struct Case {
        const char* line;
        std::optional<K> kind; // none: no step
        QByteArray packet;
        int count;
        int intervalMs;
        const char* errorPart; // empty: no error
    };
    const Case cases[] = {
        {"press 10 20", K::Packets, "^\x0A\x14", 1, 20, ""},
        {"  PRESS 0 255 5 100 ", K::Packets, QByteArray("^\0\xFF", 3), 5, 100, ""},
        {"hold 1 2 100", K::Packets, "^\x01\x02", 6, 20, ""},
        {"hold 1 2 0", K::Packets, "^\x01\x02", 1, 20, ""},
        {"lift", K::Packets, "^xx", 1, 0, ""},
        {"release", K::Packets, "^xx", 1, 0, ""},
        {"wait 50", K::Wait, {}, 0, 50, ""},
        {"garbage 10", K::Garbage, {}, 10, 0, ""},
        {"quit", K::Quit, {}, 0, 0, ""},
        {"", std::nullopt, {}, 0, 0, ""},
        {"   ", std::nullopt, {}, 0, 0, ""},
        {"# press 1 1", std::nullopt, {}, 0, 0, ""},
        {"press 10", std::nullopt, {}, 0, 0, "takes 2 to 4 arguments"},
        {"press 256 1", std::nullopt, {}, 0, 0, "X must be"},
        {"press 1 -1", std::nullopt, {}, 0, 0, "Y must be"},
        {"press a b", std::nullopt, {}, 0, 0, "not \"a\""},
        {"press 1 2 0", std::nullopt, {}, 0, 0, "COUNT must be"},
        {"press 1 2 3 -4", std::nullopt, {}, 0, 0, "INTERVAL_MS must be"},
        {"press 1 2 3 4 5", std::nullopt, {}, 0, 0, "takes 2 to 4"},
        {"hold 1 2", std::nullopt, {}, 0, 0, "takes 3 to 3"},
        {"lift 3", std::nullopt, {}, 0, 0, "takes 0 to 0"},
        {"wait", std::nullopt, {}, 0, 0, "takes 1 to 1"},
        {"wait 1.5", std::nullopt, {}, 0, 0, "MS must be"},
        {"garbage 0", std::nullopt, {}, 0, 0, "N must be"},
        {"garbage 65537", std::nullopt, {}, 0, 0, "N must be"},
        {"quit now", std::nullopt, {}, 0, 0, "takes 0 to 0"},
        {"jump 1", std::nullopt, {}, 0, 0, "unknown command \"jump\""},
    };
    for (const Case& c : cases) {
        const SimParse p = parseSimLine(QString::fromLatin1(c.line));
        EXPECT_EQ(p.step.has_value(), c.kind.has_value()) << c.line;
        EXPECT_EQ(p.error.isEmpty(), *c.errorPart == 0) << c.line;
        EXPECT_TRUE(p.error.contains(QString::fromLatin1(c.errorPart)))
            << c.line << ": " << p.error.toStdString();
        if (!p.step || !c.kind)
            continue;
        EXPECT_EQ(p.step->kind, *c.kind) << c.line;
        EXPECT_EQ(p.step->packet, c.packet) << c.line;
        EXPECT_EQ(p.step->count, c.count) << c.line;
        EXPECT_EQ(p.step->intervalMs, c.intervalMs) << c.line;
    }
}

TEST(SimulatorScript, SplitsArgumentsAtSemicolonsAndNewlines) {
    EXPECT_EQ(splitSimScript(QStringLiteral("press 1 2; lift\nquit")),
              (QStringList{"press 1 2", " lift", "quit"}));
}

TEST(TabletResponder, AnswersTheHostsCommands) {
    struct Case {
        const char* fromHost;
        QByteArray answer;
        bool streaming;
    };
    const Case cases[] = {
        {"@Z0\r", "#0\r", false},
        {"@I\r", TabletResponder::defaultIdentification() + '\r', false},
        {"@S5=0\r@S6=1\n", "#0\r#0\r", false},
        {"@X\r", "", true},
        {"@S8=0\r", "#0\r", true},
        {"@Z0\r", "#0\r", false},
        {"@Q\r", "#1\r", false},
        {"@S=\r", "#1\r", false},
        {"@Z", "", false},
        {"0\r", "#0\r", false},
        {"\r\n\r", "", false},
    };
    TabletResponder tablet;
    for (const Case& c : cases) {
        EXPECT_EQ(tablet.feed(c.fromHost), c.answer) << c.fromHost;
        EXPECT_EQ(tablet.isStreaming(), c.streaming) << c.fromHost;
    }
}

TEST(TabletResponder, AMuteTabletStillObeys) {
    TabletResponder tablet;
    tablet.setMute(true);
    EXPECT_EQ(tablet.feed("@Z0\r@I\r@X\r"), QByteArray());
    EXPECT_TRUE(tablet.isStreaming());
}

TEST(TabletResponder, AnEndlessLineDoesNotGrowWithoutBound) {
    TabletResponder tablet;
    EXPECT_EQ(tablet.feed(QByteArray(100000, 'z')), QByteArray());
    EXPECT_EQ(tablet.feed("\r"), QByteArray("#1\r"));
    EXPECT_EQ(tablet.lastCommand().size(), 256);
}

} // namespace
} // namespace mervak::sim
