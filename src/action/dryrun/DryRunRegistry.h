#pragma once

#include "action/dryrun/DryRunLog.h"
#include "platform/Registry.h"

namespace mervak {

// An empty registry that takes every write without keeping it. Each write is
// one "registry" effect: the "key" ("HKEY_CURRENT_USER\Software\X"), the value
// "name" and the "value" as text ("text", "dword:000000FF", "hex:0A,FF").
class DryRunRegistry : public Registry {
public:
    explicit DryRunRegistry(DryRunLog& log) : log_(log) {}

    std::optional<QStringList> subkeys(const RegistryPath&) override { return std::nullopt; }
    std::optional<RegistryValue> value(const RegistryPath&, const QString&) override {
        return std::nullopt;
    }
    bool setValue(const RegistryPath& key, const QString& name,
                  const RegistryValue& value) override;

private:
    DryRunLog& log_;
};

} // namespace mervak
