#include "platform/AtomicFile.h"

#include <QSaveFile>
#include <unistd.h>

namespace mervak {

bool writeFileAtomically(const QString& path, const QByteArray& data, QString* error) {
    QSaveFile file(path);
    const auto fail = [&] {
        if (error)
            *error = file.errorString();
        file.cancelWriting();
        return false;
    };
    if (!file.open(QIODevice::WriteOnly))
        return fail();
    if (file.write(data) != data.size() || !file.flush())
        return fail();
    if (::fsync(file.handle()) != 0)
        return fail();
    if (!file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

} // namespace mervak
