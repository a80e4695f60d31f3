#pragma once

#include "platform/TextEncoding.h"

#include <QString>
#include <QStringList>
#include <utility>

namespace mervak {

// One INI file read and written the classic private-profile way. Section and key
// names match without regard to case; values are trimmed of blanks and of one pair
// of surrounding quotes. Every call reads the file anew and keeps nothing open.
class PrivateProfile {
public:
    explicit PrivateProfile(QString path);

    // The value, or `fallback` when the file, the section or the key is missing.
    // A value is cut to `bufferSize` - 1 characters, as a caller's buffer of that
    // size holds them with its terminator.
    QString readString(const QString& section, const QString& key, const QString& fallback,
                       int bufferSize) const;

    // The value's leading decimal (or "0x" hexadecimal) integer, 0 when it has none,
    // `fallback` when the key is missing.
    long long readInteger(const QString& section, const QString& key, long long fallback) const;

    // Sets one key, keeping every other line as it was and adding the section or the
    // file when missing. Written atomically; false with `error` set on failure.
    bool writeString(const QString& section, const QString& key, const QString& value,
                     QString* error = nullptr) const;

    using KeyValue = std::pair<QString, QString>;
    struct Section {
        QString name;
        QList<KeyValue> entries; // values as readString gives them, uncut
    };

    // Every section of an INI text, in order, with its keys in order; lines
    // before the first section and lines without "=" are left out.
    static QList<Section> sections(const QString& text);

    // Sets several keys of one section in a single atomic write.
    bool writeStrings(const QString& section, const QList<KeyValue>& entries,
                      QString* error = nullptr) const;

private:
    struct Lines {
        QStringList lines;
        QString lineEnd;
        FileEncoding encoding = FileEncoding::Windows1252;
    };
    Lines load() const;
    QString rawValue(const QString& section, const QString& key, bool* found) const;

    QString path_;
};

} // namespace mervak
