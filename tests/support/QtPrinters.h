#pragma once

// Lets gtest print Qt values in expectations and messages; every test includes it.

#include <QByteArray>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const QString& text) {
    return out << '"' << text.toStdString() << '"';
}

inline std::ostream& operator<<(std::ostream& out, const QByteArray& bytes) {
    return out << "bytes(" << bytes.toHex(' ').toStdString() << ")";
}

inline std::ostream& operator<<(std::ostream& out, const QStringList& list) {
    return out << '[' << list.join(QStringLiteral(", ")).toStdString() << ']';
}

inline std::ostream& operator<<(std::ostream& out, const QPoint& point) {
    return out << '(' << point.x() << ", " << point.y() << ')';
}

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text;
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << bytes;
}
inline void PrintTo(const QStringList& list, std::ostream* out) {
    *out << list;
}
