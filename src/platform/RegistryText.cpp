#include "platform/RegistryText.h"

#include "platform/NumericText.h"

#include <QStringList>
#include <cmath>

namespace mervak {

namespace {

struct RootName {
    RegistryRoot root;
    const char* name;
};

constexpr RootName kRoots[] = {
    {RegistryRoot::CurrentConfig, "HKEY_CURRENT_CONFIG"},
    {RegistryRoot::CurrentUser, "HKEY_CURRENT_USER"},
    {RegistryRoot::LocalMachine, "HKEY_LOCAL_MACHINE"},
    {RegistryRoot::Users, "HKEY_USERS"},
};

const QString kDwordPrefix = QStringLiteral("DWORD:");
const QString kHexPrefix = QStringLiteral("HEX:");

struct Range {
    long long min;
    long long max;
};

constexpr Range kDwordRange{-2147483648LL, 4294967295LL};
constexpr Range kByteRange{0, 255};

// The first non-blank position of text[from, from + length), or `from` when all blank.
qsizetype firstNonBlank(const QString& text, qsizetype from, qsizetype length) {
    for (qsizetype i = from; i < from + length; ++i)
        if (!text[i].isSpace())
            return i;
    return from;
}

// A whole number in Val's notation within the range, or nothing.
std::optional<long long> wholeNumber(const QString& item, Range range) {
    if (!IsNumeric(item))
        return std::nullopt;
    const double value = Val(item);
    if (std::floor(value) != value || value < range.min || value > range.max)
        return std::nullopt;
    return static_cast<long long>(value);
}

ParsedRegistryValue failedAt(qsizetype position) {
    return {std::nullopt, position};
}

ParsedRegistryValue parseDword(const QString& text) {
    const qsizetype from = kDwordPrefix.size();
    const auto number = wholeNumber(text.mid(from), kDwordRange);
    if (!number)
        return failedAt(firstNonBlank(text, from, text.size() - from));
    return {RegistryValue(static_cast<std::uint32_t>(*number)), -1};
}

ParsedRegistryValue parseHex(const QString& text) {
    const qsizetype from = kHexPrefix.size();
    QStringList items = text.mid(from).split(u',');
    if (items.size() == 1 && items[0].trimmed().isEmpty())
        return {RegistryValue(QByteArray()), -1};
    if (items.size() > 1 && items.last().trimmed().isEmpty())
        items.removeLast();
    QByteArray bytes;
    qsizetype itemStart = from;
    for (const QString& item : items) {
        const auto byte = wholeNumber(item, kByteRange);
        if (!byte)
            return failedAt(firstNonBlank(text, itemStart, item.size()));
        bytes.append(static_cast<char>(*byte));
        itemStart += item.size() + 1;
    }
    return {RegistryValue(bytes), -1};
}

QString upperHex(unsigned value, int digits) {
    return QString::number(value, 16).toUpper().rightJustified(digits, u'0');
}

} // namespace

std::optional<RegistryRoot> parseRegistryRoot(const QString& name) {
    for (const auto& root : kRoots)
        if (name.compare(QLatin1String(root.name), Qt::CaseInsensitive) == 0)
            return root.root;
    return std::nullopt;
}

QString registryRootName(RegistryRoot root) {
    for (const auto& known : kRoots)
        if (known.root == root)
            return QLatin1String(known.name);
    return {};
}

std::optional<RegistryPath> parseRegistryPath(const QString& path) {
    const qsizetype separator = path.indexOf(u'\\');
    const auto root = parseRegistryRoot(separator < 0 ? path : path.left(separator));
    if (!root)
        return std::nullopt;
    QString subkey = separator < 0 ? QString() : path.mid(separator + 1);
    while (subkey.endsWith(u'\\'))
        subkey.chop(1);
    return RegistryPath{*root, subkey};
}

ParsedRegistryValue parseRegistryValue(const QString& text) {
    if (text.startsWith(kDwordPrefix, Qt::CaseInsensitive))
        return parseDword(text);
    if (text.startsWith(kHexPrefix, Qt::CaseInsensitive))
        return parseHex(text);
    return {RegistryValue(text), -1};
}

QString formatRegistryValue(const RegistryValue& value) {
    if (const auto* number = std::get_if<std::uint32_t>(&value))
        return QStringLiteral("dword:") + upperHex(*number, 8);
    if (const auto* bytes = std::get_if<QByteArray>(&value)) {
        QStringList parts;
        for (char byte : *bytes)
            parts.append(upperHex(static_cast<unsigned char>(byte), 2));
        return QStringLiteral("hex:") + parts.join(u',');
    }
    return std::get<QString>(value);
}

} // namespace mervak
