#pragma once

#include "openboard/Board.h"
#include "openboard/BoardMessages.h"

#include <QByteArray>
#include <variant>

namespace mervak {

// The largest grid a board may declare: far more buttons than a sheet can show,
// small enough that a corrupt count cannot exhaust memory.
constexpr int kMaxGridSide = 1000;

// Reads one .obf board. Ids written as numbers are taken as text, fields Mervak
// does not use are skipped, and what it does use must have the right type: a
// wrong one gives an error naming the field ("buttons[2].label"). `file` names
// the board in errors.
std::variant<Board, BoardError> readBoard(const QByteArray& json, const QString& file);

// Writes a board as .obf JSON that readBoard reads back to the same Board.
QByteArray writeBoard(const Board& board);

} // namespace mervak
