#include "platform/SingleInstance.h"

#include <QDir>
#include <QStandardPaths>

namespace mervak {

namespace {

QString defaultRuntimeFolder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

} // namespace

SingleInstance::SingleInstance(const QString& runtimeFolder)
    : path_(QDir(runtimeFolder.isEmpty() ? defaultRuntimeFolder() : runtimeFolder)
                .filePath(QStringLiteral("mervak-%1.lock").arg(qEnvironmentVariable("USER")))) {}

bool SingleInstance::acquire() {
    lock_ = std::make_unique<QLockFile>(path_);
    lock_->setStaleLockTime(0);
    if (lock_->tryLock(0))
        return true;
    lock_.reset();
    return false;
}

} // namespace mervak
