#pragma once

#include "sheet/Symbol.h"

#include <QList>
#include <QStringView>
#include <vector>

namespace mervak {

// Finds symbols by what the teacher types, accents and letter case ignored: exact names
// first, then exact keywords, then whole words, word beginnings and any part. Within a
// kind the teacher's own pictures come first, then symbols whose name holds the search
// as a word, then the shorter names, then the library's own order.
class SymbolIndex {
public:
    explicit SymbolIndex(QList<Symbol> symbols = {});

    // At most `limit` matches, best first; none for a blank search.
    QList<SymbolMatch> search(QStringView words, qsizetype limit) const;

    const QList<Symbol>& symbols() const { return symbols_; }

private:
    struct Folded {
        QString name;
        QStringList keywords;
        QString joined; // name and keywords, "\n" between: one look rules most symbols out
    };
    QList<Symbol> symbols_;
    std::vector<Folded> folded_;
};

} // namespace mervak
