#include "session/TrustStore.h"

#include "platform/AtomicFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QList>

namespace mervak {

namespace {

QList<QByteArray> readLines(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().split('\n');
}

} // namespace

QByteArray TrustStore::hashOf(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
}

TrustStore::Answer TrustStore::answer(const QByteArray& hash) const {
    for (const QByteArray& line : readLines(path_)) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.mid(2) != hash)
            continue;
        if (trimmed.startsWith("p "))
            return Answer::Allow;
        if (trimmed.startsWith("n "))
            return Answer::Deny;
    }
    return Answer::None;
}

bool TrustStore::remember(const QByteArray& hash, Answer answer, QString* error) const {
    if (path_.isEmpty())
        return true;
    QByteArray kept = "# Plantilles permeses (p) o no (n), pel SHA-256 del fitxer\n";
    for (const QByteArray& line : readLines(path_)) {
        const QByteArray trimmed = line.trimmed();
        if (trimmed.size() > 2 && !trimmed.startsWith('#') && trimmed.mid(2) != hash)
            kept += trimmed + '\n';
    }
    if (answer != Answer::None)
        kept += (answer == Answer::Allow ? "p " : "n ") + hash + '\n';
    return writeFileAtomically(path_, kept, error);
}

} // namespace mervak
