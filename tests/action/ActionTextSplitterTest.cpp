#include "action/ActionTextSplitter.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// "K:" a key run, "C:" a command block, "S:" a conditional.
QStringList describe(const QList<ActionStep>& steps) {
    QStringList lines;
    for (const ActionStep& step : steps) {
        const char* prefix = step.kind == ActionStep::Kind::Keys      ? "K:"
                             : step.kind == ActionStep::Kind::Command ? "C:"
                                                                      : "S:";
        lines.append(QLatin1String(prefix) + step.text);
    }
    return lines;
}

struct SplitCase {
    const char* name;
    QString text;
    QStringList steps;
};

TEST(ActionTextSplitter, CutsKeyRunsAndBlocks) {
    const SplitCase cases[] = {
        {"empty", "", {}},
        {"keys only", "abc{ENTER}", {"K:abc{ENTER}"}},
        {"block only", "{|Pagina 2}", {"C:{|Pagina 2"}},
        {"keys around a block", "abc{|Espera 5}def", {"K:abc", "C:{|Espera 5", "K:def"}},
        {"braced keys before a block", "{TAB}x{|CM }", {"K:{TAB}x", "C:{|CM "}},
        {"two blocks in a row", "{|M+ 1}{|RM }", {"C:{|M+ 1", "C:{|RM "}},
        {"nested block", "{|M+ {|RM }}x", {"C:{|M+ {|RM }", "K:x"}},
        {"conditional with groups", "{|SIM 5 {abc} {def}}", {"S:{|SIM 5 {abc} {def}"}},
        {"conditional in lower case", "{|sim 5 {a}{b}}z", {"S:{|sim 5 {a}{b}", "K:z"}},
        {"SIMx is still the conditional", "{|SIMPLE}", {"S:{|SIMPLE"}},
        {"unclosed block takes the rest", "ab{|Espera 3", {"K:ab", "C:{|Espera 3"}},
        {"unclosed inner brace takes the rest", "{|M+ {a}x{b", {"C:{|M+ {a}x{b"}},
        {"blank between blocks is a key run", "{|CM } {|RM }", {"C:{|CM ", "K: ", "C:{|RM "}},
        {"a lone closing brace after a block is keys", "{|CM }}", {"C:{|CM ", "K:}"}},
        {"bar inside braces is a block", "a{|}b", {"K:a", "C:{|", "K:b"}},
        {"deep nesting", "{|TRIA [{|RCW }#{|RM }]}!", {"C:{|TRIA [{|RCW }#{|RM }]", "K:!"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(describe(ActionTextSplitter::split(c.text)), c.steps) << c.name;
}

TEST(ActionTextSplitter, MatchesBracesByCounting) {
    EXPECT_EQ(ActionTextSplitter::matchingBrace("{a{b}c}d", 0), 6);
    EXPECT_EQ(ActionTextSplitter::matchingBrace("{a{b}c}d", 2), 4);
    EXPECT_EQ(ActionTextSplitter::matchingBrace("{a{b}", 0), -1);
    EXPECT_EQ(ActionTextSplitter::matchingBrace("{}", 0), 1);
}

} // namespace
} // namespace mervak
