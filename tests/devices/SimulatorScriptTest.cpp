#include "SimScript.h"

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
        {"wait 50", K::Wait, {}, 0, 50, ""},
        {"garbage 10", K::Garbage, {}, 10, 0, ""},
        {"quit", K::Quit, {}, 0, 0, ""},
        {"", std::nullopt, {}, 0, 0, ""},
        {"# press 1 1", std::nullopt, {}, 0, 0, ""},
        {"press 10", std::nullopt, {}, 0, 0, "takes 2 to 4 arguments"},
        {"press 256 1", std::nullopt, {}, 0, 0, "X must be"},
        {"press a b", std::nullopt, {}, 0, 0, "not \"a\""},
        {"press 1 2 0", std::nullopt, {}, 0, 0, "COUNT must be"},
        {"garbage 0", std::nullopt, {}, 0, 0, "N must be"},
        {"garbage 65537", std::nullopt, {}, 0, 0, "N must be"},
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

} // namespace
} // namespace mervak::sim
