#pragma once

#include <QByteArray>
#include <QString>

namespace mervak {

// Writes the whole file or nothing: the data goes to a temporary file beside the
// target, is flushed to disk, and only then replaces the target by a rename. On
// any failure (full disk, no permission) the old file is untouched, no temporary
// file is left, false is returned and `error` says why in plain words.
bool writeFileAtomically(const QString& path, const QByteArray& data, QString* error = nullptr);

} // namespace mervak
