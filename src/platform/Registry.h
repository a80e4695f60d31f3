#pragma once

#include "platform/RegistryText.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace mervak {

// A hierarchical store of typed values under the four roots. Key names are
// compared without regard to case.
class Registry {
public:
    virtual ~Registry() = default;

    // The names of the subkeys directly below the key, in the order the backend
    // enumerates them; nothing when the key cannot be opened for reading.
    virtual std::optional<QStringList> subkeys(const RegistryPath& key) = 0;

    // The named value of the key; the empty name is the key's default value.
    // Nothing when the key or the value does not exist.
    virtual std::optional<RegistryValue> value(const RegistryPath& key, const QString& name) = 0;

    // Writes the named value into an existing key; keys are never created.
    // False when the key cannot be opened for writing or the write fails.
    virtual bool setValue(const RegistryPath& key, const QString& name,
                          const RegistryValue& value) = 0;
};

// Reads are made into a buffer of this many bytes: a value whose data (a
// string with its terminating zero, or bytes) does not fit reads as empty.
constexpr qsizetype kRegistryReadBufferBytes = 2000;

// The value as text ("dword:000000FF", "hex:0A,FF" or the string itself). The
// empty name reads the key's default value, which is read only as a string.
// Empty when the root is unknown, the key or value is missing or too long.
QString GetValue(Registry& registry, const QString& path, const QString& name);

// The registry writer of the REG command: root name ("HKEY_CURRENT_USER"...),
// subkey (leading and trailing "\" ignored), value name and value text (see
// parseRegistryValue); the empty name writes the key's default value, which takes
// only a plain string. Keys are never created. Returns 0 when written, -1 on any
// failure.
int WriteRegistryValue(Registry& registry, const QString& rootName, const QString& subkey,
                       const QString& name, const QString& valueText);

} // namespace mervak
