#include "platform/PrivateProfile.h"

#include "platform/AtomicFile.h"

#include <QFile>

namespace mervak {

namespace {

// "[Name]" gives "Name"; anything else is not a section header.
bool sectionName(const QString& line, QString* name) {
    const QString trimmed = line.trimmed();
    if (!trimmed.startsWith(u'['))
        return false;
    const qsizetype close = trimmed.indexOf(u']');
    if (close < 0)
        return false;
    *name = trimmed.mid(1, close - 1).trimmed();
    return true;
}

// "key = value" gives the key; lines without "=" and comments have none.
bool keyName(const QString& line, QString* key) {
    const QString trimmed = line.trimmed();
    if (trimmed.startsWith(u';'))
        return false;
    const qsizetype equals = trimmed.indexOf(u'=');
    if (equals < 0)
        return false;
    *key = trimmed.left(equals).trimmed();
    return true;
}

QString unquoted(QString value) {
    value = value.trimmed();
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        value = value.mid(1, value.size() - 2);
    return value;
}

bool sameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

int digitOf(QChar c, int radix) {
    const char16_t lower = c.toLower().unicode();
    int digit = -1;
    if (lower >= u'0' && lower <= u'9')
        digit = lower - u'0';
    else if (lower >= u'a' && lower <= u'f')
        digit = lower - u'a' + 10;
    return digit < radix ? digit : -1;
}

long long leadingInteger(const QString& text) {
    const QString value = text.trimmed();
    qsizetype pos = 0;
    const bool negative = value.startsWith(u'-');
    if (negative || value.startsWith(u'+'))
        ++pos;
    int radix = 10;
    if (value.mid(pos, 2).compare(QStringLiteral("0x"), Qt::CaseInsensitive) == 0) {
        radix = 16;
        pos += 2;
    }
    long long result = 0;
    // Past 2^40 the value has long stopped meaning anything; stop before it overflows.
    for (; pos < value.size() && result < (1LL << 40); ++pos) {
        const int digit = digitOf(value[pos], radix);
        if (digit < 0)
            break;
        result = result * radix + digit;
    }
    return negative ? -result : result;
}

} // namespace

PrivateProfile::PrivateProfile(QString path) : path_(std::move(path)) {}

PrivateProfile::Lines PrivateProfile::load() const {
    Lines result;
    result.lineEnd = QStringLiteral("\r\n");
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly))
        return result;
    const DecodedText decoded = decodeFileText(file.readAll());
    result.encoding = decoded.encoding;
    QString text = decoded.text;
    if (text.contains(u'\n') && !text.contains(QStringLiteral("\r\n")))
        result.lineEnd = QStringLiteral("\n");
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    result.lines = text.split(u'\n');
    if (!result.lines.isEmpty() && result.lines.back().isEmpty())
        result.lines.removeLast();
    return result;
}

QList<PrivateProfile::Section> PrivateProfile::sections(const QString& text) {
    QList<Section> result;
    for (const QString& line : QString(text).replace(u'\r', u'\n').split(u'\n')) {
        QString name;
        if (sectionName(line, &name))
            result.append({name, {}});
        else if (!result.isEmpty() && keyName(line, &name))
            result.last().entries.append({name, unquoted(line.mid(line.indexOf(u'=') + 1))});
    }
    return result;
}

QString PrivateProfile::rawValue(const QString& section, const QString& key, bool* found) const {
    *found = false;
    bool inSection = false;
    for (const QString& line : load().lines) {
        QString name;
        if (sectionName(line, &name)) {
            inSection = sameName(name, section);
        } else if (inSection && keyName(line, &name) && sameName(name, key)) {
            *found = true;
            return line.mid(line.indexOf(u'=') + 1);
        }
    }
    return {};
}

QString PrivateProfile::readString(const QString& section, const QString& key,
                                   const QString& fallback, int bufferSize) const {
    bool found = false;
    const QString value = rawValue(section, key, &found);
    return (found ? unquoted(value) : fallback).left(std::max(0, bufferSize - 1));
}

long long PrivateProfile::readInteger(const QString& section, const QString& key,
                                      long long fallback) const {
    bool found = false;
    const QString value = rawValue(section, key, &found);
    return found ? leadingInteger(value) : fallback;
}

// Sets the key in the lines, after the section's last key line when it is new.
static void setKey(QStringList& lines, const QString& section, const QString& key,
                   const QString& value) {
    qsizetype insertAt = -1;
    bool inSection = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QString name;
        if (sectionName(lines[i], &name)) {
            inSection = sameName(name, section);
            if (inSection)
                insertAt = i + 1;
        } else if (inSection && keyName(lines[i], &name)) {
            if (sameName(name, key)) {
                lines[i] = name + u'=' + value;
                return;
            }
            insertAt = i + 1;
        }
    }
    if (insertAt < 0) {
        lines.append(u'[' + section + u']');
        insertAt = lines.size();
    }
    lines.insert(insertAt, key + u'=' + value);
}

bool PrivateProfile::writeString(const QString& section, const QString& key, const QString& value,
                                 QString* error) const {
    return writeStrings(section, {{key, value}}, error);
}

bool PrivateProfile::writeStrings(const QString& section, const QList<KeyValue>& entries,
                                  QString* error) const {
    Lines file = load();
    for (const auto& [key, value] : entries)
        setKey(file.lines, section, key, value);
    const QString text = file.lines.join(file.lineEnd) + file.lineEnd;
    return writeFileAtomically(path_, encodeFileText(text, file.encoding), error);
}

} // namespace mervak
