#pragma once

#include "template/TemplateError.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace mervak {

// The whole file, or message 3 with the path when it cannot be read.
std::optional<TemplateError> readFileBytes(const QString& path, QByteArray& bytes);

// Writes the whole file atomically, or gives message 104 with the path and the reason.
std::optional<TemplateError> writeFileBytes(const QString& path, const QByteArray& bytes);

// Message 3 with the path, keeping where reading failed.
TemplateError readErrorFor(const QString& path, TemplateError error);

} // namespace mervak
