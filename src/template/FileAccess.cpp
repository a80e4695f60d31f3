#include "template/FileAccess.h"

#include "platform/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

namespace mervak {

std::optional<TemplateError> readFileBytes(const QString& path, QByteArray& bytes) {
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return TemplateError{TemplateMessage::ReadError, path, 0, file.errorString()};
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return TemplateError{TemplateMessage::ReadError, path, 0, file.errorString()};
    return std::nullopt;
}

std::optional<TemplateError> writeFileBytes(const QString& path, const QByteArray& bytes) {
    QString reason;
    if (!writeFileAtomically(path, bytes, &reason))
        return TemplateError{TemplateMessage::GeneralError, QStringLiteral(" ") + path, 0, reason};
    return std::nullopt;
}

TemplateError readErrorFor(const QString& path, TemplateError error) {
    if (error.message == TemplateMessage::ReadError)
        error.argument = path;
    return error;
}

} // namespace mervak
