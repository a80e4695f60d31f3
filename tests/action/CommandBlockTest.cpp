#include "action/CommandBlock.h"

#include "action/ConditionalBlock.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

struct DecodeCase {
    QString block;
    QString keyword;
    QString argument;
};

TEST(CommandBlock, DecodesKeywordAndArgument) {
    const DecodeCase cases[] = {
        {"{|Pagina 2", "PAGINA", "2"},
        {"{|cm ", "CM", ""},
        {"{|CM", "CM", ""},
        {"{|M+   abc  ", "M+", "abc"},
        {"{|Llegir Hola. Com va?", "LLEGIR", "Hola. Com va?"},
        {"{|M+ {|RM }", "M+", "{|RM }"},
        {"{|", "", ""},
        {"{|  x", "", "x"},
        {"{|Sona\tA.WAV", "SONA\tA.WAV", ""},
    };
    for (const auto& c : cases) {
        const DecodedBlock decoded = CommandBlock::decode(c.block);
        EXPECT_EQ(decoded.keyword, c.keyword) << c.block;
        EXPECT_EQ(decoded.argument, c.argument) << c.block;
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

struct ExpandCase {
    const char* name;
    QString text;
    std::optional<QString> expanded;
};

TEST(CommandBlock, ExpandsTheRightmostInnerBlock) {
    const ExpandCase cases[] = {
        {"register", "a{|RM }b", "a<mem>b"},
        {"rightmost first", "{|RM }{|RCW }", "{|RM }<clip>"},
        {"innermost first", "[{|RCW }#b]", "[<clip>#b]"},
        {"keyword without a blank", "{|RM}", "<mem>"},
        {"keyword in any case", "{|rcw }", "<clip>"},
        {"choice with its argument", "x{|TRIA [a#b] }", "x<pick [a#b]>"},
        {"unknown keyword gives itself in upper case", "{|hola }", "HOLA"},
        {"brace without a bar", "a{b}c", "aBc"},
        {"bar after the block is not its bar", "{b}|c", "B|c"},
        {"no brace", "a|b", std::nullopt},
        {"brace never closed", "a{|RM ", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CommandBlock::ExpandInnerBlock(c.text, fakeValue), c.expanded) << c.name;
}

TEST(CommandBlock, ExpandsAnArgumentUntilNoBlockIsLeft) {
    const ExpandCase cases[] = {
        {"nothing to do", "abc", "abc"},
        {"two blocks", "{|RM }-{|RCW }", "<mem>-<clip>"},
        {"nested blocks", "{|TRIA [{|RCW }#b]}", "<pick [<clip>#b]>"},
        {"bar outside any block", "cat | more", std::nullopt},
        {"unclosed block", "{|RM ", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CommandBlock::expandArgument(c.text, fakeValue), c.expanded) << c.name;
}

TEST(CommandBlock, GivesUpOnValuesThatBringTheirBlockBack) {
    const auto selfCopy = [](const QString&, const QString&) { return QStringLiteral("{|RM }"); };
    EXPECT_EQ(CommandBlock::expandArgument("{|RM }", selfCopy), std::nullopt);
}

struct ConditionalCase {
    const char* name;
    QString block;
    QString condition;
    QString whenEqual;
    QString otherwise;
};

TEST(ConditionalBlock, SplitsConditionAndBranches) {
    const ConditionalCase cases[] = {
        {"as the menu writes it", "{|SIM 5 {cert}{fals}", "5", "cert", "fals"},
        {"blanks between groups", "{|SIM  abc  {x} {y}", "abc", "x", "y"},
        {"branches with blocks", "{|SIM 1 {a{|Pagina 2}}{b{ENTER}}", "1", "a{|Pagina 2}",
         "b{ENTER}"},
        {"no second group", "{|SIM 1 {a}", "1", "a", ""},
        {"no group at all", "{|SIM 1", "1", "", ""},
        {"unclosed first group", "{|SIM 1 {a{b}", "1", "a{b}", ""},
        {"empty condition", "{|SIM {a}{b}", "", "a", "b"},
    };
    for (const auto& c : cases) {
        const ConditionalBlock parsed = ConditionalBlock::parse(c.block);
        EXPECT_EQ(parsed.condition, c.condition) << c.name;
        EXPECT_EQ(parsed.whenEqual, c.whenEqual) << c.name;
        EXPECT_EQ(parsed.otherwise, c.otherwise) << c.name;
    }
}

} // namespace
} // namespace mervak
