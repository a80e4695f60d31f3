#pragma once

#include <QString>

namespace mervak {

// Stored paths keep the Windows form the teacher's files were made with
// ("C:\PLANT\sons\Bell.WAV", "sons\bell.wav"); these turn them into local files.

// "\" becomes "/" and a leading drive letter is dropped, so "C:\a\b" is "/a/b".
QString toLocalPath(const QString& stored);

// True when the stored path names its file from a root or drive ("C:\x", "\x", "/x").
bool isAbsoluteStoredPath(const QString& stored);

// The existing file or folder whose path equals `localPath` up to letter case,
// preferring exact components; empty when there is none.
QString findCaseInsensitive(const QString& localPath);

// The existing file a stored path names: the path itself (relative ones under
// `baseFolder`), matched case-insensitively, then ever shorter tails of it under
// `baseFolder`. When nothing exists, the converted path is returned as it stands.
QString resolveStoredPath(const QString& stored, const QString& baseFolder);

} // namespace mervak
