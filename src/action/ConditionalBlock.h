#pragma once

#include <QString>

namespace mervak {

// "{|SIM text {cert}{fals}": the text compared with the memory register and the
// ActionText run when they are equal or when they differ.
struct ConditionalBlock {
    QString condition; // the text before the first "{", trimmed of blanks
    QString whenEqual; // inside the first braced group
    QString otherwise; // inside the next braced group; empty when there is none

    // `block` runs from its "{|SIM" up to, not including, its closing "}". A
    // group ends where its braces balance, or at the end of the block.
    static ConditionalBlock parse(const QString& block);
};

} // namespace mervak
