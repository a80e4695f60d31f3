#include "devices/EasyProtocol.h"

namespace mervak {

QByteArray easyCommandBytes(const char* command) {
    return QByteArray(command) + kEasyTerminator;
}

bool replyHolds(const QString& reply, const char* expected) {
    return reply.contains(QLatin1String(expected), Qt::CaseInsensitive);
}

} // namespace mervak
