#pragma once

#include <QString>
#include <QStringList>

namespace mervak {

// One picture the teacher can search for: a library symbol or one of the teacher's own.
struct Symbol {
    QString id;           // an OpenMoji hexcode ("1F415"), or the absolute path of a picture file
    QString name;         // in the library's language; a picture's is its file name
    QStringList keywords; // in the same language; none for a picture
    bool ownPicture = false;

    friend bool operator==(const Symbol&, const Symbol&) = default;
};

// How a symbol matched a search, best first.
enum class SymbolMatchKind {
    Name,          // the name is the search
    Keyword,       // a keyword is the search
    NameWords,     // the search's words stand whole in the name ("gos" in "cara de gos")
    KeywordWords,  // ... in a keyword
    NamePrefix,    // a word of the name starts with the search ("ga" in "gat")
    KeywordPrefix, // ... of a keyword
    Part,          // the search stands anywhere in the name or a keyword
};

struct SymbolMatch {
    const Symbol* symbol = nullptr; // lives as long as the index that found it
    SymbolMatchKind kind = SymbolMatchKind::Part;
};

} // namespace mervak
