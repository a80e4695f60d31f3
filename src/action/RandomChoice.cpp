#include "action/RandomChoice.h"

#include "action/CommandBlock.h"
#include "platform/Checked16.h"
#include "platform/NumericText.h"

#include <QStringList>
#include <algorithm>
#include <limits>

namespace mervak {

namespace {

QStringList choicesOf(const QString& list) {
    QString inside = CommandBlock::trimBlanks(list);
    if (inside.startsWith(u'['))
        inside.remove(0, 1);
    if (inside.endsWith(u']'))
        inside.chop(1);
    QStringList choices = inside.split(u'#');
    for (QString& choice : choices)
        choice = CommandBlock::trimBlanks(choice);
    return choices;
}

} // namespace

QString RandomChoice::choose(const QString& list) {
    const QStringList choices = choicesOf(list);
    if (choices.size() == 2 && IsNumeric(choices[0])) {
        const std::int64_t a = roundToInt32(Val(choices[0]));
        const std::int64_t b = roundToInt32(Val(choices[1]));
        const std::int64_t low = std::min(a, b);
        const auto span = static_cast<std::uint64_t>(std::max(a, b) - low + 1);
        return numberToText(static_cast<double>(low + static_cast<std::int64_t>(below(span))));
    }
    return choices[static_cast<qsizetype>(below(static_cast<std::uint64_t>(choices.size())))];
}

std::uint64_t RandomChoice::below(std::uint64_t count) {
    constexpr std::uint64_t top = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t limit = top - top % count;
    std::uint64_t value = generator_();
    while (value >= limit)
        value = generator_();
    return value % count;
}

} // namespace mervak
