#pragma once

#include "template/AreaCell.h"

#include <QFont>
#include <QList>
#include <QString>

namespace mervak {

// The clear school font of the labels (Andika, letters children learn to
// write), falling back to DejaVu Sans where it is missing.
QFont labelFont();

// A colour a teacher picks for a cell, with its Catalan name.
struct PaletteColour {
    const char* catalan;
    uint32_t rgb; // 0xRRGGBB
};

// The word-class colours of communication boards, in the order the palette
// shows them: people, actions, descriptions, things, social words, and the
// questions and negations many boards add.
const QList<PaletteColour>& wordClassColours();

// The border a cell gets when it is made: dark, so cells stand apart on paper.
constexpr uint32_t kDefaultBorder = 0x404040U;

} // namespace mervak
