#pragma once

#include "openboard/ZipArchive.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QDirIterator>

namespace mervak::test {

// The files under tests/data/openboard/`folder`, zipped by their paths there.
inline QByteArray zippedFolder(const QString& folder) {
    const QDir root(dataPath(QStringLiteral("openboard/") + folder));
    ZipEntries entries;
    QDirIterator it(root.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        entries.insert(root.relativeFilePath(path), readAll(path));
    }
    return writeZip(entries).value_or(QByteArray());
}

} // namespace mervak::test
