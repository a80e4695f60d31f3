#include "action/ActionTextSplitter.h"
#include "action/CommandBlock.h"
#include "action/ConditionalBlock.h"
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

TEST(CommandBlock, DecodesKeywordAndArgument) {
    const QString cases[][3] = {
        // block, keyword, argument
        {"{|Pagina 2", "PAGINA", "2"},        {"{|CM", "CM", ""},
        {"{|M+   abc  ", "M+", "abc"},        {"{|Llegir Hola. Com va?", "LLEGIR", "Hola. Com va?"},
        {"{|M+ {|RM }", "M+", "{|RM }"},      {"{|  x", "", "x"},
        {"{|Sona\tA.WAV", "SONA\tA.WAV", ""},
    };
    for (const auto& [block, keyword, argument] : cases) {
        const DecodedBlock decoded = CommandBlock::decode(block);
        EXPECT_EQ(decoded.keyword, keyword) << block;
        EXPECT_EQ(decoded.argument, argument) << block;
    }
}

// Values that show which inner block was asked for.
QString fakeValue(const QString& keyword, const QString& argument) {
    if (keyword == u"RM")
        return QStringLiteral("<mem>");
    if (keyword == u"RCW")
        return QStringLiteral("<clip>");
    if (keyword == u"TRIA")
        return QStringLiteral("<pick %1>").arg(argument);
    return keyword;
}

using Expansion = std::pair<QString, std::optional<QString>>;

TEST(CommandBlock, ExpandsTheRightmostInnerBlockUntilNoneIsLeft) {
    const Expansion steps[] = {
        {"a{|RM }b", "a<mem>b"},
        {"{|RM }{|RCW }", "{|RM }<clip>"},
        {"[{|RCW }#b]", "[<clip>#b]"},
        {"x{|TRIA [a#b] }", "x<pick [a#b]>"},
        {"{|hola }", "HOLA"},
        {"a{b}c", "aBc"},
        {"{b}|c", "B|c"},
        {"a|b", std::nullopt},
        {"a{|RM ", std::nullopt},
    };
    for (const auto& [text, expanded] : steps)
        EXPECT_EQ(CommandBlock::ExpandInnerBlock(text, fakeValue), expanded) << text;
    const Expansion arguments[] = {
        {"abc", "abc"},
        {"{|TRIA [{|RCW }#b]}", "<pick [<clip>#b]>"},
        {"cat | more", std::nullopt},
    };
    for (const auto& [text, expanded] : arguments)
        EXPECT_EQ(CommandBlock::expandArgument(text, fakeValue), expanded) << text;
    const auto selfCopy = [](const QString&, const QString&) { return QStringLiteral("{|RM }"); };
    EXPECT_EQ(CommandBlock::expandArgument("{|RM }", selfCopy), std::nullopt) << "gives up";
}

TEST(ConditionalBlock, SplitsConditionAndBranches) {
    const QString cases[][4] = {
        // block, condition, when equal, otherwise
        {"{|SIM  abc  {x} {y}", "abc", "x", "y"},
        {"{|SIM 1 {a{|Pagina 2}}{b{ENTER}}", "1", "a{|Pagina 2}", "b{ENTER}"},
        {"{|SIM 1 {a}", "1", "a", ""},
        {"{|SIM 1", "1", "", ""},
        {"{|SIM 1 {a{b}", "1", "a{b}", ""},
        {"{|SIM {a}{b}", "", "a", "b"},
    };
    for (const auto& [block, condition, whenEqual, otherwise] : cases) {
        const ConditionalBlock parsed = ConditionalBlock::parse(block);
        EXPECT_EQ(parsed.condition, condition) << block;
        EXPECT_EQ(parsed.whenEqual, whenEqual) << block;
        EXPECT_EQ(parsed.otherwise, otherwise) << block;
    }
}

} // namespace
} // namespace mervak
