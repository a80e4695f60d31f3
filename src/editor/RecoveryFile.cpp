#include "editor/RecoveryFile.h"

#include "template/FileAccess.h"
#include "template/MvwWriter.h"

#include <QDir>
#include <QFileInfo>

namespace mervak {

RecoveryFile::RecoveryFile(QString homeFolder) : homeFolder_(std::move(homeFolder)) {}

QString RecoveryFile::path() const {
    return QDir(homeFolder_).filePath(QStringLiteral("recuperacio.mvw"));
}

bool RecoveryFile::exists() const {
    return QFileInfo::exists(path());
}

std::optional<TemplateError> RecoveryFile::keepUnsaved(const Template& t) const {
    if (!t.Modified)
        return std::nullopt;
    return writeFileBytes(path(), writeMvwSaveAs(t));
}

} // namespace mervak
