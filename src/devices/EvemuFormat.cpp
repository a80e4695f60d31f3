#include "devices/EvemuFormat.h"

namespace mervak {

namespace {

constexpr std::size_t kBytesPerLine = 8;
constexpr int64_t kMaxSeconds = 1'000'000'000'000;
constexpr int64_t kMaxMicros = 999'999;

QString bad(const char* what) {
    return QString::fromLatin1(what);
}

bool parseHex(const QByteArray& field, int* value) {
    bool ok = false;
    *value = field.toInt(&ok, 16);
    return ok;
}

template <std::size_t N> void setBits(std::bitset<N>& bits, int offset, int byte) {
    for (int bit = 0; bit < 8; ++bit)
        if ((byte >> bit & 1) && offset + bit < static_cast<int>(N))
            bits.set(offset + bit);
}

template <std::size_t N>
void appendBitLines(QByteArray& out, const QByteArray& prefix, const std::bitset<N>& bits) {
    for (std::size_t first = 0; first < N; first += 8 * kBytesPerLine) {
        out += prefix;
        for (std::size_t byte = first; byte < first + 8 * kBytesPerLine && byte < N; byte += 8) {
            int value = 0;
            for (int bit = 0; bit < 8 && byte + bit < N; ++bit)
                value |= bits.test(byte + bit) << bit;
            out += QByteArray::number(value, 16).rightJustified(2, '0').prepend(' ');
        }
        out += '\n';
    }
}

} // namespace

bool EvemuParser::feed(const QByteArray& line, QString* error) {
    const qsizetype comment = line.indexOf('#');
    const QList<QByteArray> fields =
        line.left(comment < 0 ? line.size() : comment).simplified().split(' ');
    const QByteArray& tag = fields.first();
    if (tag.isEmpty() || tag == "L:" || tag == "S:")
        return true;
    if (tag == "E:")
        return readEvent(fields, error);
    if (headerDone_) {
        *error = bad("a header line after the events");
        return false;
    }
    if (tag == "N:") {
        capabilities_.name = QString::fromUtf8(line.mid(line.indexOf(':') + 1).trimmed());
        return true;
    }
    if (tag == "I:")
        return true;
    if (tag == "P:") {
        for (qsizetype i = 1; i < fields.size(); ++i, propertyOffset_ += 8) {
            int byte = 0;
            if (!parseHex(fields[i], &byte))
                return *error = bad("a property byte that is not hexadecimal"), false;
            setBits(capabilities_.properties, propertyOffset_, byte);
        }
        return true;
    }
    if (tag == "B:")
        return readBits(fields, error);
    if (tag == "A:")
        return readAxis(fields, error);
    *error = bad("a line that is not evemu text");
    return false;
}

bool EvemuParser::readBits(const QList<QByteArray>& fields, QString* error) {
    int type = 0;
    if (fields.size() < 2 || !parseHex(fields[1], &type) || type < 0 || type >= EV_CNT)
        return *error = bad("a capability line without its event type"), false;
    for (qsizetype i = 2; i < fields.size(); ++i, bitOffset_[type] += 8) {
        int byte = 0;
        if (!parseHex(fields[i], &byte))
            return *error = bad("a capability byte that is not hexadecimal"), false;
        if (type == EV_KEY)
            setBits(capabilities_.keys, bitOffset_[type], byte);
    }
    return true;
}

bool EvemuParser::readAxis(const QList<QByteArray>& fields, QString* error) {
    int code = 0;
    if (fields.size() < 4 || !parseHex(fields[1], &code) || code < 0 || code >= ABS_CNT)
        return *error = bad("an axis line without its axis and range"), false;
    bool minOk = false;
    bool maxOk = false;
    AbsAxis axis{fields[2].toInt(&minOk), fields[3].toInt(&maxOk), 0};
    if (!minOk || !maxOk)
        return *error = bad("an axis line without its range"), false;
    // Recordings do not keep where the axes stood: a stick starts centred.
    // Halfway lies between the two, so it fits; the difference may not.
    axis.value =
        static_cast<int>(axis.minimum + (static_cast<int64_t>(axis.maximum) - axis.minimum) / 2);
    capabilities_.axes[code] = axis;
    return true;
}

bool EvemuParser::readEvent(const QList<QByteArray>& fields, QString* error) {
    int type = 0;
    int code = 0;
    bool secondsOk = false;
    bool microsOk = false;
    bool valueOk = false;
    if (fields.size() != 5 || !parseHex(fields[2], &type) || !parseHex(fields[3], &code) ||
        type >= EV_CNT)
        return *error = bad("an event line that is not \"E: time type code value\""), false;
    const QList<QByteArray> time = fields[1].split('.');
    const int64_t seconds = time.first().toLongLong(&secondsOk);
    const int64_t micros = time.size() == 2 ? time[1].toLongLong(&microsOk) : 0;
    const int32_t value = fields[4].toInt(&valueOk);
    // Times count up from the start of a recording; the bounds keep them in 64 bits.
    const bool timeInRange =
        seconds >= 0 && seconds <= kMaxSeconds && micros >= 0 && micros <= kMaxMicros;
    if (!secondsOk || (time.size() == 2 && !microsOk) || time.size() > 2 || !valueOk ||
        !timeInRange)
        return *error = bad("an event line with a bad time or value"), false;
    const int64_t timeUs = seconds * 1'000'000 + micros;
    if (firstTimeUs_ < 0)
        firstTimeUs_ = timeUs;
    headerDone_ = true;
    events_.push_back(
        {timeUs - firstTimeUs_, static_cast<uint16_t>(type), static_cast<uint16_t>(code), value});
    return true;
}

std::vector<InputEvent> EvemuParser::takeEvents() {
    return std::exchange(events_, {});
}

QByteArray evemuHeader(const InputCapabilities& capabilities) {
    QByteArray out = "# EVEMU 1.3\nN: " + capabilities.name.toUtf8() + "\nI: 0003 0000 0000 0001\n";
    appendBitLines(out, "P:", capabilities.properties);
    std::bitset<EV_CNT> types;
    types.set(EV_SYN).set(EV_KEY, capabilities.keys.any());
    std::bitset<ABS_CNT> axes;
    for (int code = 0; code < ABS_CNT; ++code)
        axes.set(code, capabilities.hasAxis(code));
    types.set(EV_ABS, axes.any());
    appendBitLines(out, "B: 00", types);
    appendBitLines(out, "B: 01", capabilities.keys);
    appendBitLines(out, "B: 03", axes);
    for (int code = 0; code < ABS_CNT; ++code)
        if (const auto& axis = capabilities.axes[code])
            out += QStringLiteral("A: %1 %2 %3 0 0 0\n")
                       .arg(code, 2, 16, QLatin1Char('0'))
                       .arg(axis->minimum)
                       .arg(axis->maximum)
                       .toLatin1();
    return out;
}

QByteArray evemuEventLine(const InputEvent& event) {
    return QStringLiteral("E: %1.%2 %3 %4 %5\n")
        .arg(event.timeUs / 1'000'000)
        .arg(event.timeUs % 1'000'000, 6, 10, QLatin1Char('0'))
        .arg(event.type, 4, 16, QLatin1Char('0'))
        .arg(event.code, 4, 16, QLatin1Char('0'))
        .arg(event.value, 4, 10, QLatin1Char('0'))
        .toLatin1();
}

} // namespace mervak
