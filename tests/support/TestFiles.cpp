#include "support/TestFiles.h"

#include <QFile>
#include <gtest/gtest.h>

namespace mervak::test {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString& path, const QByteArray& data) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    ASSERT_EQ(file.write(data), data.size());
}

QString dataPath(const QString& relative) {
    return QStringLiteral(MERVAK_TEST_DATA "/") + relative;
}

} // namespace mervak::test
