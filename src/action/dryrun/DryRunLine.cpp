#include "action/dryrun/DryRunLine.h"

namespace mervak {

DryRunLine::DryRunLine(const QString& effect) : text_("{\"effect\":" + quoted(effect)) {}

DryRunLine& DryRunLine::add(const char* key, const QString& value) {
    return addRaw(key, quoted(value));
}

DryRunLine& DryRunLine::add(const char* key, qint64 value) {
    return addRaw(key, QByteArray::number(value));
}

DryRunLine& DryRunLine::add(const char* key, const QStringList& values) {
    QByteArray json = "[";
    for (qsizetype i = 0; i < values.size(); ++i)
        json += (i > 0 ? "," : "") + quoted(values[i]);
    return addRaw(key, json + ']');
}

DryRunLine& DryRunLine::addNull(const char* key) {
    return addRaw(key, "null");
}

DryRunLine& DryRunLine::addRaw(const char* key, const QByteArray& json) {
    text_ += ",\"" + QByteArray(key) + "\":" + json;
    return *this;
}

// A lone surrogate cannot be written in UTF-8 and becomes "?".
QByteArray DryRunLine::quoted(const QString& value) {
    QByteArray json = "\"";
    for (const char c : value.toUtf8()) {
        switch (c) {
        case '"':
            json += "\\\"";
            break;
        case '\\':
            json += "\\\\";
            break;
        case '\n':
            json += "\\n";
            break;
        case '\r':
            json += "\\r";
            break;
        case '\t':
            json += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20)
                json += QByteArray("\\u00") +
                        QByteArray::number(static_cast<int>(c), 16).rightJustified(2, '0');
            else
                json += c;
        }
    }
    return json + '"';
}

} // namespace mervak
