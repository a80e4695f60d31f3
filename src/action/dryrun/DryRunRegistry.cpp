#include "action/dryrun/DryRunRegistry.h"

namespace mervak {

bool DryRunRegistry::setValue(const RegistryPath& key, const QString& name,
                              const RegistryValue& value) {
    QString path = registryRootName(key.root);
    if (!key.subkey.isEmpty())
        path += u'\\' + key.subkey;
    log_.write(DryRunLine("registry")
                   .add("key", path)
                   .add("name", name)
                   .add("value", formatRegistryValue(value)));
    return true;
}

} // namespace mervak
