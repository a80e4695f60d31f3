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

// The subkey names of the key at `path` ("HKEY_...\key\path") joined by
// carriage returns (character 13), in the backend's order, with no trailing
// separator. Empty when the root is unknown or the key cannot be opened.
QString EnumerateSubkeys(Registry& registry, const QString& path);

// The value as text ("dword:000000FF", "hex:0A,FF" or the string itself). The
// empty name reads the key's default value, which is read only as a string.
// Empty when the root is unknown, the key or value is missing or too long.
QString GetValue(Registry& registry, const QString& path, const QString& name);

// Writes the value text (see parseRegistryValue) into the existing key at
// `path`. The empty name writes the default value, which takes only a plain
// string. False when the root is unknown, the text cannot be read or the write
// fails.
bool SetValue(Registry& registry, const QString& path, const QString& name,
              const QString& valueText);

// The program file of a COM server: its class identifier is the default value
// of HKEY_LOCAL_MACHINE\SOFTWARE\Classes\<identifier>\CLSID, its command line
// the default value of ...\SOFTWARE\Classes\CLSID\<class id>\LocalServer32.
// The command line is trimmed and cut after its first ".EXE" (any case); a
// command line without ".EXE" is returned whole. Empty when either is missing.
QString FindServerProgram(Registry& registry, const QString& identifier);

// The registry writer of the REG command: root name ("HKEY_CURRENT_USER"...),
// subkey (leading and trailing "\" ignored), value name and value text as for
// SetValue. Returns 0 when written, -1 on any failure.
int WriteRegistryValue(Registry& registry, const QString& rootName, const QString& subkey,
                       const QString& name, const QString& valueText);

} // namespace mervak
