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

TEST(ActionTextSplitter, CutsKeyRunsAndBlocks) {
    const std::pair<QString, QStringList> cases[] = {
        {"", {}},
        {"abc{ENTER}", {"K:abc{ENTER}"}},
        {"abc{|Espera 5}def", {"K:abc", "C:{|Espera 5", "K:def"}},
        {"{TAB}x{|CM }", {"K:{TAB}x", "C:{|CM "}},
        {"{|M+ 1}{|RM }", {"C:{|M+ 1", "C:{|RM "}},
        {"{|M+ {|RM }}x", {"C:{|M+ {|RM }", "K:x"}},
        {"{|sim 5 {a}{b}}z", {"S:{|sim 5 {a}{b}", "K:z"}},
        {"{|SIMPLE}", {"S:{|SIMPLE"}},
        {"ab{|Espera 3", {"K:ab", "C:{|Espera 3"}},
        {"{|M+ {a}x{b", {"C:{|M+ {a}x{b"}},
        {"{|CM } {|RM }", {"C:{|CM ", "K: ", "C:{|RM "}},
        {"{|CM }}", {"C:{|CM ", "K:}"}},
        {"a{|}b", {"K:a", "C:{|", "K:b"}},
    };
    for (const auto& [text, steps] : cases)
        EXPECT_EQ(describe(ActionTextSplitter::split(text)), steps) << text;
}

} // namespace
} // namespace mervak
