#include "platform/NoRegistry.h"

namespace mervak {

std::optional<QStringList> NoRegistry::subkeys(const RegistryPath&) {
    return std::nullopt;
}

std::optional<RegistryValue> NoRegistry::value(const RegistryPath&, const QString&) {
    return std::nullopt;
}

bool NoRegistry::setValue(const RegistryPath&, const QString&, const RegistryValue&) {
    return false;
}

} // namespace mervak
