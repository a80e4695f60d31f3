#pragma once

#include <QLockFile>
#include <QString>
#include <memory>

namespace mervak {

// One copy of the program per user session: a lock file in the per-user runtime
// folder. A lock left by a copy that died is taken over.
class SingleInstance {
public:
    // `runtimeFolder` empty means $XDG_RUNTIME_DIR (or the temporary folder).
    explicit SingleInstance(const QString& runtimeFolder = QString());

    // True when this is the only running copy; the lock is then held until destruction.
    bool acquire();

private:
    QString path_;
    std::unique_ptr<QLockFile> lock_;
};

} // namespace mervak
