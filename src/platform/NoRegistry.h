#pragma once

#include "platform/Registry.h"

namespace mervak {

// The registry on a system that has none: no key can be opened, so every read
// is empty and every write fails, quietly.
class NoRegistry : public Registry {
public:
    std::optional<QStringList> subkeys(const RegistryPath& key) override;
    std::optional<RegistryValue> value(const RegistryPath& key, const QString& name) override;
    bool setValue(const RegistryPath& key, const QString& name,
                  const RegistryValue& value) override;
};

} // namespace mervak
