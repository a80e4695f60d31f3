#pragma once

#include <QString>
#include <functional>

namespace mervak {

// Finds the SVG file of a library symbol from its hexcode ("1F415"); an empty
// answer when the library has no such symbol. The symbol library plugs in here,
// so the sheet draws symbols without knowing where the library lies.
using SymbolFileLookup = std::function<QString(const QString& hexcode)>;

// Where the pictures a sheet names are found.
struct PictureFiles {
    QString templateFolder;      // relative and Windows-style names resolve against it
    SymbolFileLookup symbolFile; // empty: every symbol is missing

    // The file a cell or page picture names: a symbol's SVG, or the stored name
    // found as the program finds every stored name. Empty when there is none.
    QString find(const QString& picture) const;
};

} // namespace mervak
