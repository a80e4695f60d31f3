#include "sheet/SymbolText.h"

namespace mervak {

QString foldForSearch(QStringView text) {
    const QString decomposed = text.toString().normalized(QString::NormalizationForm_KD);
    QString folded;
    folded.reserve(decomposed.size());
    bool blank = false;
    for (const QChar c : decomposed) {
        if (c.category() == QChar::Mark_NonSpacing || c == u'\u00B7')
            continue;
        if (c.isSpace()) {
            blank = !folded.isEmpty();
            continue;
        }
        if (blank)
            folded += u' ';
        blank = false;
        folded += c == u'\u2019' ? QChar(u'\'') : c.toCaseFolded();
    }
    return folded;
}

} // namespace mervak
