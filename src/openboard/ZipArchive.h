#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <optional>

namespace mervak {

// The files of a zip archive by their path inside it ("boards/1.obf"); folders
// are left out.
using ZipEntries = QMap<QString, QByteArray>;

// The largest archive entry read: boards and their pictures are far smaller,
// and a corrupt or hostile size must not exhaust memory.
constexpr qint64 kMaxZipEntryBytes = 64LL * 1024 * 1024;

// Reads every file of the archive held in `bytes`. No value, with `error`
// saying why, when it is not a zip or an entry cannot be read.
std::optional<ZipEntries> readZip(const QByteArray& bytes, QString* error = nullptr);

// A deflated archive of the entries, in path order.
std::optional<QByteArray> writeZip(const ZipEntries& entries, QString* error = nullptr);

} // namespace mervak
