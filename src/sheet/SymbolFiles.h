#pragma once

#include "platform/Language.h"
#include "sheet/Symbol.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace mervak {

// The library's symbols with their names in one language, as the setup unpacked them
// into `folder` (share/mervak/symbols): OpenMoji's list in openmoji/openmoji.json, the
// CLDR names and keywords in cldr/ca and cldr/es. Symbols with no name in the language
// (skin-tone variants, OpenMoji's own extras) are left out.
struct LibraryRead {
    QList<Symbol> symbols;
    QString errorCaption; // Catalan, "%1" for the file at fault; empty when all was read
    QString errorFile;
};
LibraryRead readLibrarySymbols(const QString& folder, Language language);

// The SVG of a library symbol in `folder`, in colour or in black and white; empty when
// the library has no such symbol.
QString librarySymbolFile(const QString& folder, const QString& hexcode, bool colour);

// The picture files under the teacher's folders (subfolders too), each named by its file
// name with "_" and "-" read as blanks. At most `limit` of them, so that a folder chosen
// by mistake (a whole home) keeps the search quick.
QList<Symbol> readOwnPictures(const QStringList& folders, qsizetype limit = 20000);

} // namespace mervak
