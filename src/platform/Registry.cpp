#include "platform/Registry.h"

namespace mervak {

namespace {

bool fitsReadBuffer(const RegistryValue& value) {
    if (const auto* text = std::get_if<QString>(&value))
        return text->size() + 1 <= kRegistryReadBufferBytes;
    if (const auto* bytes = std::get_if<QByteArray>(&value))
        return bytes->size() <= kRegistryReadBufferBytes;
    return true;
}

bool writeValueText(Registry& registry, const RegistryPath& key, const QString& name,
                    const QString& valueText) {
    const ParsedRegistryValue parsed = parseRegistryValue(valueText);
    if (!parsed.value)
        return false;
    if (name.isEmpty() && !std::holds_alternative<QString>(*parsed.value))
        return false;
    return registry.setValue(key, name, *parsed.value);
}

} // namespace

QString GetValue(Registry& registry, const QString& path, const QString& name) {
    const auto key = parseRegistryPath(path);
    if (!key)
        return {};
    const auto value = registry.value(*key, name);
    if (!value || !fitsReadBuffer(*value))
        return {};
    if (name.isEmpty() && !std::holds_alternative<QString>(*value))
        return {};
    return formatRegistryValue(*value);
}

int WriteRegistryValue(Registry& registry, const QString& rootName, const QString& subkey,
                       const QString& name, const QString& valueText) {
    const auto root = parseRegistryRoot(rootName);
    if (!root)
        return -1;
    QString keyPath = subkey;
    while (keyPath.startsWith(u'\\'))
        keyPath.remove(0, 1);
    while (keyPath.endsWith(u'\\'))
        keyPath.chop(1);
    return writeValueText(registry, RegistryPath{*root, keyPath}, name, valueText) ? 0 : -1;
}

} // namespace mervak
