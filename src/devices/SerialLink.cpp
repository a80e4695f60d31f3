#include "devices/SerialLink.h"

namespace mervak {

void closeLink(std::unique_ptr<SerialLink>& link, QObject* receiver) {
    if (!link)
        return;
    link->close();
    link->disconnect(receiver);
    link.release()->deleteLater();
}

} // namespace mervak
