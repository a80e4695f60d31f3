#include "editor/AreaSelection.h"

namespace mervak {

namespace {

QString counter(int current, int total, const char* noun) {
    return QString::number(current) + u'/' + QString::number(total) + u' ' +
           QString::fromUtf8(noun);
}

bool inRange(const Template& t, int index) {
    return index >= 1 && index <= t.AreaCount();
}

// The page counter always tells the page: a Template has at least one.
QString pageCounter(const Template& t) {
    return counter(t.CurrentPage, t.PageCount, "pàgines");
}

CounterTexts dashes(const Template& t) {
    return {QStringLiteral("----- àrees"), pageCounter(t)};
}

} // namespace

CounterTexts startCounterTexts() {
    return {counter(0, 0, "àrees"), counter(1, 1, "pàgines")};
}

CounterTexts counterTexts(const Template& t) {
    if (!inRange(t, t.SelectedArea))
        return dashes(t);
    return {counter(t.CurrentArea, t.PageAreaCount, "àrees"), pageCounter(t)};
}

CounterTexts SelectArea(Template& t, int index) {
    if (!inRange(t, index)) {
        t.CurrentArea = 0;
        t.SelectedArea = 0;
        t.PageAreaCount = 0;
        return dashes(t);
    }
    t.SelectedArea = static_cast<int16_t>(index);
    return counterTexts(t);
}

CounterTexts pickArea(Template& t, int index) {
    if (inRange(t, index)) {
        const QList<int16_t> onPage = t.areasOfPage(t.CurrentPage);
        t.PageAreaCount = static_cast<int16_t>(onPage.size());
        t.CurrentArea = static_cast<int16_t>(onPage.indexOf(static_cast<int16_t>(index)) + 1);
    }
    return SelectArea(t, index);
}

CounterTexts selectFirstAreaOfPage(Template& t) {
    const QList<int16_t> onPage = t.areasOfPage(t.CurrentPage);
    return onPage.isEmpty() ? SelectArea(t, 0) : pickArea(t, onPage.first());
}

} // namespace mervak
