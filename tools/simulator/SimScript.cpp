#include "SimScript.h"

#include <QRegularExpression>

namespace mervak::sim {

namespace {

constexpr int kMaxCount = 1'000'000;
constexpr int kMaxMs = 24 * 3600 * 1000;

// Parses word `index` as a whole number in [low, high]; fills `error` otherwise.
std::optional<int> number(const QStringList& words, int index, int low, int high, const char* what,
                          QString* error) {
    bool ok = false;
    const int value = words.value(index).toInt(&ok);
    if (ok && value >= low && value <= high)
        return value;
    *error = QStringLiteral("%1 must be a whole number from %2 to %3, not \"%4\"")
                 .arg(QLatin1String(what))
                 .arg(low)
                 .arg(high)
                 .arg(words.value(index));
    return std::nullopt;
}

QByteArray packet(int x, int y) {
    return QByteArray(1, '^') + char(x) + char(y);
}

std::optional<SimStep> packets(const QStringList& w, int count, int interval, QString* error) {
    const auto x = number(w, 1, 0, 255, "X", error);
    const auto y = x ? number(w, 2, 0, 255, "Y", error) : std::nullopt;
    if (!y)
        return std::nullopt;
    return SimStep{SimStep::Kind::Packets, packet(*x, *y), count, interval};
}

std::optional<SimStep> parseWords(const QStringList& w, QString* error) {
    const QString verb = w[0].toLower();
    const auto expectWords = [&](qsizetype low, qsizetype high) {
        if (w.size() >= low && w.size() <= high)
            return true;
        *error =
            QStringLiteral("\"%1\" takes %2 to %3 arguments").arg(verb).arg(low - 1).arg(high - 1);
        return false;
    };
    if (verb == "press") {
        if (!expectWords(3, 5))
            return std::nullopt;
        const auto count = w.size() > 3 ? number(w, 3, 1, kMaxCount, "COUNT", error) : 1;
        const auto interval =
            count && w.size() > 4 ? number(w, 4, 0, kMaxMs, "INTERVAL_MS", error) : kHoldIntervalMs;
        if (!count || !interval)
            return std::nullopt;
        return packets(w, *count, *interval, error);
    }
    if (verb == "hold") {
        if (!expectWords(4, 4))
            return std::nullopt;
        const auto ms = number(w, 3, 0, kMaxMs, "MS", error);
        return ms ? packets(w, *ms / kHoldIntervalMs + 1, kHoldIntervalMs, error) : std::nullopt;
    }
    if (verb == "lift" || verb == "release") {
        if (!expectWords(1, 1))
            return std::nullopt;
        return SimStep{SimStep::Kind::Packets, packet(kLiftCode, kLiftCode), 1, 0};
    }
    if (verb == "wait") {
        const auto ms = expectWords(2, 2) ? number(w, 1, 0, kMaxMs, "MS", error) : std::nullopt;
        return ms ? std::optional(SimStep{SimStep::Kind::Wait, {}, 0, *ms}) : std::nullopt;
    }
    if (verb == "garbage") {
        const auto n = expectWords(2, 2) ? number(w, 1, 1, kMaxGarbage, "N", error) : std::nullopt;
        return n ? std::optional(SimStep{SimStep::Kind::Garbage, {}, *n, 0}) : std::nullopt;
    }
    if (verb == "quit") {
        if (!expectWords(1, 1))
            return std::nullopt;
        return SimStep{SimStep::Kind::Quit, {}, 0, 0};
    }
    *error = QStringLiteral("unknown command \"%1\"").arg(w[0]);
    return std::nullopt;
}

} // namespace

SimParse parseSimLine(const QString& line) {
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QString text = line.trimmed();
    if (text.isEmpty() || text.startsWith(u'#'))
        return {};
    SimParse result;
    result.step = parseWords(text.split(blanks), &result.error);
    return result;
}

QStringList splitSimScript(const QString& script) {
    static const QRegularExpression separators(QStringLiteral("[;\\n]"));
    return script.split(separators);
}

} // namespace mervak::sim
