#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace mervak {

// One effect as a compact JSON object whose keys keep the order they were added
// in, "effect" first: {"effect":"keys","text":"abc","events":["a","b","c"]}.
// Text is written as UTF-8 with JSON escapes.
class DryRunLine {
public:
    explicit DryRunLine(const QString& effect);

    DryRunLine& add(const char* key, const QString& value);
    DryRunLine& add(const char* key, const char* value) { return add(key, QString(value)); }
    DryRunLine& add(const char* key, qint64 value);
    DryRunLine& add(const char* key, const QStringList& values);
    DryRunLine& addNull(const char* key);

    // The object, without a line end.
    QByteArray text() const { return text_ + '}'; }

    static QByteArray quoted(const QString& value);

private:
    DryRunLine& addRaw(const char* key, const QByteArray& json);

    QByteArray text_;
};

} // namespace mervak
