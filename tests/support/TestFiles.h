#pragma once

#include <QByteArray>
#include <QString>

namespace mervak::test {

// Reads a whole file; an empty array when it cannot be read.
QByteArray readAll(const QString& path);

// Writes a whole file, failing the current test when it cannot.
void writeAll(const QString& path, const QByteArray& data);

// The path of a file under tests/data.
QString dataPath(const QString& relative);

} // namespace mervak::test
