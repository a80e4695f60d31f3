#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace mervak {

// A REG argument, "[ROOT\subkey]name=value", in its parts.
struct RegistryArgument {
    QString root;
    QString subkey;
    QString name;
    QString value;
};

struct DecodedBlock {
    QString keyword;  // upper case
    QString argument; // trimmed of blanks, inner blocks not yet expanded
};

// The text form of a command block: its keyword, its argument and the inner
// blocks of the argument ("{|M+ {|RM }}", "{|TRIA [{|RCW }#b]}").
class CommandBlock {
public:
    // `block` runs from its "{|" up to, not including, its closing "}". The
    // keyword ends at the first blank; with no blank the argument is empty.
    static DecodedBlock decode(const QString& block);

    // The value of an inner block from its upper-case keyword and its argument.
    using InnerValue = std::function<QString(const QString& keyword, const QString& argument)>;

    // Replaces the rightmost inner block (from the last "{" to the first "}"
    // after it) by its value; its keyword starts after the first "|" inside it
    // (after the "{" when it holds none). Nothing when `text` has no "{" or no
    // "}" after the last one.
    static std::optional<QString> ExpandInnerBlock(const QString& text, const InnerValue& valueOf);

    // Expands inner blocks, rightmost first, until the argument holds no "{" and
    // no "|". Nothing when that cannot be done (a "|" outside any block, a "{"
    // never closed, values that keep bringing blocks back): the command is then
    // left undone.
    static std::optional<QString> expandArgument(const QString& argument,
                                                 const InnerValue& valueOf);

    // Nothing when the "[", "\", "]" or "=" is missing.
    static std::optional<RegistryArgument> registryArgument(const QString& argument);

    // Trims spaces only, as the command language always has.
    static QString trimBlanks(const QString& text);
};

} // namespace mervak
