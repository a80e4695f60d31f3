#include "action/CommandBlock.h"

namespace mervak {

namespace {

// Enough for any argument written by hand; a bound for values that bring back
// the blocks they came from.
constexpr int kMaxExpansions = 256;

QString withoutTrailingBlanks(QString text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

QString CommandBlock::trimBlanks(const QString& text) {
    qsizetype first = 0;
    while (first < text.size() && text[first] == u' ')
        ++first;
    return withoutTrailingBlanks(text.mid(first));
}

DecodedBlock CommandBlock::decode(const QString& block) {
    const QString body = withoutTrailingBlanks(block.mid(2));
    const qsizetype blank = body.indexOf(u' ');
    if (blank < 0)
        return {body.toUpper(), QString()};
    return {body.left(blank).toUpper(), trimBlanks(body.mid(blank))};
}

std::optional<RegistryArgument> CommandBlock::registryArgument(const QString& argument) {
    if (!argument.startsWith(u'['))
        return std::nullopt;
    const qsizetype backslash = argument.indexOf(u'\\');
    const qsizetype bracket = backslash < 0 ? -1 : argument.indexOf(u']', backslash);
    const qsizetype equals = bracket < 0 ? -1 : argument.indexOf(u'=', bracket);
    if (equals < 0)
        return std::nullopt;
    return RegistryArgument{
        argument.mid(1, backslash - 1), argument.mid(backslash + 1, bracket - backslash - 1),
        argument.mid(bracket + 1, equals - bracket - 1), argument.mid(equals + 1)};
}

std::optional<QString> CommandBlock::ExpandInnerBlock(const QString& text,
                                                      const InnerValue& valueOf) {
    const qsizetype open = text.lastIndexOf(u'{');
    if (open < 0)
        return std::nullopt;
    const qsizetype close = text.indexOf(u'}', open);
    if (close < 0)
        return std::nullopt;
    const qsizetype bar = text.indexOf(u'|', open);
    const qsizetype innerStart = (bar >= 0 && bar < close) ? bar + 1 : open + 1;
    const QString inner = text.mid(innerStart, close - innerStart);
    const qsizetype blank = inner.indexOf(u' ');
    const QString keyword = (blank < 0 ? inner : inner.left(blank)).toUpper();
    const QString argument = blank < 0 ? QString() : trimBlanks(inner.mid(blank));
    return text.left(open) + valueOf(keyword, argument) + text.mid(close + 1);
}

std::optional<QString> CommandBlock::expandArgument(const QString& argument,
                                                    const InnerValue& valueOf) {
    QString expanded = argument;
    for (int i = 0; i < kMaxExpansions; ++i) {
        if (!expanded.contains(u'{') && !expanded.contains(u'|'))
            return expanded;
        const auto next = ExpandInnerBlock(expanded, valueOf);
        if (!next)
            return std::nullopt;
        expanded = *next;
    }
    return std::nullopt;
}

} // namespace mervak
