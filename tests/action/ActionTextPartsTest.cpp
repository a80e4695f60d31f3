#include "action/CommandBlock.h"

#include "action/ConditionalBlock.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

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
        {"{|RM}", "<mem>"},
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
