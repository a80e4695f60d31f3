#pragma once

#include <QString>
#include <QStringView>

namespace mervak {

// The form in which symbol names, keywords and what the teacher types are compared:
// lower case, without accents or the Catalan middle dot ("Cafè" and "cafe" meet,
// "col·legi" and "collegi" too), typographic apostrophes as "'", blanks collapsed
// to one space and trimmed.
QString foldForSearch(QStringView text);

} // namespace mervak
