#pragma once

#include "template/Template.h"

#include <QString>

namespace mervak {

// The texts of the area counter (MsgArea) and the page counter (MsgPagina).
struct CounterTexts {
    QString MsgArea;
    QString MsgPagina;
    friend bool operator==(const CounterTexts&, const CounterTexts&) = default;
};

// What the counters show before anything is selected: "0/0 àrees", "1/1 pàgines".
CounterTexts startCounterTexts();

// Selects the Area with array index `index`. Outside 1..AreaCount: CurrentArea,
// SelectedArea and PageAreaCount become 0 and the area counter shows dashes.
// Otherwise SelectedArea becomes `index` and the counters show
// "CurrentArea/PageAreaCount àrees" and "CurrentPage/PageCount pàgines".
CounterTexts SelectArea(Template& t, int index);

// Selects an Area picked on the sheet: CurrentArea becomes its rank among the
// Areas of the current page and PageAreaCount their number, then as SelectArea.
CounterTexts pickArea(Template& t, int index);

// Selects the first Area of the current page, as a page shown anew does
// (CurrentArea 1); none, with the dashes, when the page has no Areas.
CounterTexts selectFirstAreaOfPage(Template& t);

// The counters for the present state: the area counter's dashes while no Area
// is selected, else as SelectArea shows them; the page counter always shows
// "CurrentPage/PageCount pàgines".
CounterTexts counterTexts(const Template& t);

} // namespace mervak
