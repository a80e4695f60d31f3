#include "action/ConditionalBlock.h"

#include "action/ActionTextSplitter.h"
#include "action/CommandBlock.h"

namespace mervak {

namespace {

// The text inside the braced group opening at or after `from`; `from` moves past it.
QString nextGroup(const QString& text, qsizetype& from) {
    const qsizetype open = text.indexOf(u'{', from);
    if (open < 0) {
        from = text.size();
        return {};
    }
    const qsizetype close = ActionTextSplitter::matchingBrace(text, open);
    const qsizetype end = close < 0 ? text.size() : close;
    from = end + 1;
    return text.mid(open + 1, end - open - 1);
}

} // namespace

ConditionalBlock ConditionalBlock::parse(const QString& block) {
    const QString rest = block.mid(5);
    const qsizetype firstGroup = rest.indexOf(u'{');
    ConditionalBlock conditional;
    conditional.condition = CommandBlock::trimBlanks(firstGroup < 0 ? rest : rest.left(firstGroup));
    qsizetype from = firstGroup < 0 ? rest.size() : firstGroup;
    conditional.whenEqual = nextGroup(rest, from);
    conditional.otherwise = nextGroup(rest, from);
    return conditional;
}

} // namespace mervak
