#include "sheet/SymbolIndex.h"

#include "sheet/SymbolText.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace mervak {

namespace {

bool isWordEdge(const QString& text, qsizetype at) {
    return at < 0 || at >= text.size() || !text.at(at).isLetterOrNumber();
}

// Whether `part` stands in `text` where a word starts, and, with `wholeWords`,
// where one ends too.
bool holdsAtWordStart(const QString& text, const QString& part, bool wholeWords) {
    for (qsizetype at = text.indexOf(part); at >= 0; at = text.indexOf(part, at + 1)) {
        if (isWordEdge(text, at - 1) && (!wholeWords || isWordEdge(text, at + part.size())))
            return true;
    }
    return false;
}

template <typename Test> bool anyOf(const QStringList& texts, Test test) {
    return std::any_of(texts.cbegin(), texts.cend(), test);
}

std::optional<SymbolMatchKind> matchOf(const QString& name, const QStringList& keywords,
                                       const QString& query) {
    using K = SymbolMatchKind;
    const auto words = [&query](bool whole) {
        return
            [&query, whole](const QString& text) { return holdsAtWordStart(text, query, whole); };
    };
    if (name == query)
        return K::Name;
    if (keywords.contains(query))
        return K::Keyword;
    if (words(true)(name))
        return K::NameWords;
    if (anyOf(keywords, words(true)))
        return K::KeywordWords;
    if (words(false)(name))
        return K::NamePrefix;
    if (anyOf(keywords, words(false)))
        return K::KeywordPrefix;
    if (name.contains(query) ||
        anyOf(keywords, [&query](const QString& k) { return k.contains(query); }))
        return K::Part;
    return std::nullopt;
}

struct Ranked {
    SymbolMatchKind kind;
    bool library;        // false for the teacher's own pictures, which come first
    bool nameLacksWords; // the name does not hold the search as whole words
    qsizetype nameLength;
    qsizetype order;

    auto key() const { return std::tie(kind, library, nameLacksWords, nameLength, order); }
};

} // namespace

SymbolIndex::SymbolIndex(QList<Symbol> symbols) : symbols_(std::move(symbols)) {
    folded_.reserve(symbols_.size());
    for (const Symbol& symbol : symbols_) {
        Folded folded{foldForSearch(symbol.name), {}, {}};
        for (const QString& keyword : symbol.keywords)
            folded.keywords.append(foldForSearch(keyword));
        folded.joined = (QStringList{folded.name} + folded.keywords).join(u'\n');
        folded_.push_back(std::move(folded));
    }
}

QList<SymbolMatch> SymbolIndex::search(QStringView words, qsizetype limit) const {
    const QString query = foldForSearch(words);
    if (query.isEmpty() || limit <= 0)
        return {};
    std::vector<Ranked> ranked;
    for (qsizetype i = 0; i < symbols_.size(); ++i) {
        const Folded& folded = folded_[static_cast<size_t>(i)];
        if (!folded.joined.contains(query))
            continue;
        if (const auto kind = matchOf(folded.name, folded.keywords, query))
            ranked.push_back({*kind, !symbols_[i].ownPicture,
                              !holdsAtWordStart(folded.name, query, true), folded.name.size(), i});
    }
    const auto kept = std::min(ranked.size(), static_cast<size_t>(limit));
    std::partial_sort(ranked.begin(), ranked.begin() + static_cast<std::ptrdiff_t>(kept),
                      ranked.end(),
                      [](const Ranked& a, const Ranked& b) { return a.key() < b.key(); });
    QList<SymbolMatch> matches;
    for (size_t i = 0; i < kept; ++i)
        matches.append({&symbols_[ranked[i].order], ranked[i].kind});
    return matches;
}

} // namespace mervak
