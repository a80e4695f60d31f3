#pragma once

#include "template/Template.h"

#include <QList>

namespace mervak {

// A grid of cells over the whole sheet, as the composer makes them.
struct GridSpec {
    int rows = 2;
    int columns = 3;
    double marginMm = 10; // between the sheet's edge and the outer cells
    double gapMm = 5;     // between neighbouring cells
};

// The Areas of the grid on `page`, numbered as a teacher reads: the top row
// first, each row left to right. Each has an empty ActionText and a cell with
// the default border, whose label will follow what it types. Sizes in
// millimetres turn into the sheet's units along each side; rows and columns
// beyond what the sheet holds (a cell under one unit) are left out.
QList<Area> readingOrderGrid(const Template& t, const GridSpec& spec, int16_t page);

// Adds such a grid to the current page, after its Areas.
// Throws Overflow16, changing nothing, past 32767 Areas.
void appendGrid(Template& t, const GridSpec& spec);

// Inserts a page after the current one holding such a grid, and makes it
// current. Throws Overflow16, changing nothing, past 32767 pages or Areas.
void addGridPage(Template& t, const GridSpec& spec);

} // namespace mervak
