#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>
#include <variant>

namespace mervak {

// The four roots a registry path may start with.
enum class RegistryRoot { CurrentConfig, CurrentUser, LocalMachine, Users };

// A key below a root; an empty subkey is the root itself.
struct RegistryPath {
    RegistryRoot root = RegistryRoot::CurrentUser;
    QString subkey;
    friend bool operator==(const RegistryPath&, const RegistryPath&) = default;
};

// A typed registry value: a string (REG_SZ), a 32-bit number (REG_DWORD) or
// bytes (REG_BINARY).
using RegistryValue = std::variant<QString, std::uint32_t, QByteArray>;

// "HKEY_CURRENT_CONFIG", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE" or
// "HKEY_USERS", compared without regard to case; nothing for any other name
// (HKEY_CLASSES_ROOT included).
std::optional<RegistryRoot> parseRegistryRoot(const QString& name);

QString registryRootName(RegistryRoot root);

// "ROOT" or "ROOT\key\path": the root as above, the rest after the first "\"
// is the subkey, taken as it stands except that trailing "\" are dropped.
// Nothing when the root is not one of the four.
std::optional<RegistryPath> parseRegistryPath(const QString& path);

// The outcome of reading a value text: the value, or the 0-based character
// position in the text where it could not be read.
struct ParsedRegistryValue {
    std::optional<RegistryValue> value;
    qsizetype errorPosition = -1;
};

// A value written as text:
// - "DWORD:" and a number: a whole number as Val reads it ("&H" for
//   hexadecimal, blanks around it allowed), from -2147483648 to 4294967295;
//   negative numbers are stored in two's complement ("DWORD:-1" and
//   "DWORD:&HFFFF", which Val reads as -1, both give FFFFFFFF).
// - "HEX:" and bytes separated by ",": each a whole number 0..255 as Val reads
//   it (so "&HFF" or "255", not "ff"), blanks around it allowed; one trailing
//   "," is ignored; "HEX:" alone is zero bytes; an empty item is refused.
// - anything else, ":" included (a path such as "C:\x"), is the string itself.
// The prefixes are compared without regard to case. A number that is missing,
// not whole or out of range refuses the whole text at that number's position.
ParsedRegistryValue parseRegistryValue(const QString& text);

// A value as text the way it is read back: the string itself, "dword:" and
// eight upper-case hexadecimal digits ("dword:000000FF"), or "hex:" and
// two-digit upper-case hexadecimal bytes joined by "," ("hex:0A,FF").
QString formatRegistryValue(const RegistryValue& value);

} // namespace mervak
