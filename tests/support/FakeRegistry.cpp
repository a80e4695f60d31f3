#include "support/FakeRegistry.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace mervak::test {

FakeRegistry::FakeRegistry() {
    for (auto root : {RegistryRoot::CurrentConfig, RegistryRoot::CurrentUser,
                      RegistryRoot::LocalMachine, RegistryRoot::Users})
        keys_.insert(registryRootName(root), Key{});
}

std::optional<QString> FakeRegistry::canonical(const RegistryPath& key) {
    QString path = registryRootName(key.root);
    if (key.subkey.isEmpty())
        return path;
    for (const QString& segment : key.subkey.split(u'\\')) {
        if (segment.isEmpty())
            return std::nullopt;
        path += u'\\' + segment.toLower();
    }
    return path;
}

const FakeRegistry::Key* FakeRegistry::find(const RegistryPath& key) const {
    const auto path = canonical(key);
    if (!path)
        return nullptr;
    const auto found = keys_.constFind(*path);
    return found == keys_.constEnd() ? nullptr : &*found;
}

FakeRegistry::Key* FakeRegistry::createKey(const QString& path) {
    const auto parsed = parseRegistryPath(path);
    if (!parsed || !canonical(*parsed)) {
        ADD_FAILURE() << "bad registry path in test set-up: " << path.toStdString();
        return nullptr;
    }
    RegistryPath key{parsed->root, {}};
    Key* created = &keys_[*canonical(key)];
    const QStringList segments =
        parsed->subkey.isEmpty() ? QStringList() : parsed->subkey.split(u'\\');
    for (const QString& segment : segments) {
        key.subkey += (key.subkey.isEmpty() ? "" : "\\") + segment;
        created = &keys_[*canonical(key)];
        if (created->name.isEmpty())
            created->name = segment;
    }
    return created;
}

void FakeRegistry::addKey(const QString& path) {
    createKey(path);
}

void FakeRegistry::put(const QString& path, const QString& name, const RegistryValue& value) {
    if (Key* key = createKey(path))
        key->values.insert(name.toLower(), value);
}

std::optional<RegistryValue> FakeRegistry::stored(const QString& path, const QString& name) const {
    const auto parsed = parseRegistryPath(path);
    const Key* key = parsed ? find(*parsed) : nullptr;
    if (!key || !key->values.contains(name.toLower()))
        return std::nullopt;
    return key->values.value(name.toLower());
}

std::optional<QStringList> FakeRegistry::subkeys(const RegistryPath& key) {
    const auto parent = canonical(key);
    if (!parent || !keys_.contains(*parent))
        return std::nullopt;
    const QString prefix = *parent + u'\\';
    QStringList names;
    for (auto it = keys_.constBegin(); it != keys_.constEnd(); ++it)
        if (it.key().startsWith(prefix) && !it.key().mid(prefix.size()).contains(u'\\'))
            names.append(it->name);
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return names;
}

std::optional<RegistryValue> FakeRegistry::value(const RegistryPath& key, const QString& name) {
    const Key* found = find(key);
    if (!found || !found->values.contains(name.toLower()))
        return std::nullopt;
    return found->values.value(name.toLower());
}

bool FakeRegistry::setValue(const RegistryPath& key, const QString& name,
                            const RegistryValue& value) {
    const auto path = canonical(key);
    if (writesFail_ || !path || !keys_.contains(*path))
        return false;
    keys_[*path].values.insert(name.toLower(), value);
    writes_.append({key, name, value});
    return true;
}

} // namespace mervak::test
