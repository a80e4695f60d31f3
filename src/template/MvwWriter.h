#pragma once

#include "template/Template.h"

#include <QByteArray>

namespace mervak {

// The whole file in the version 2 layout: 17 header lines, then 8-line area
// records. Windows-1252 when every character fits, else UTF-8; CR LF line ends.
QByteArray writeMvw(const Template& t);

// What "save as" writes: the version 1 layout (13 header lines, 9-line area
// records with ClipFlag) under version number 2.
QByteArray writeMvwSaveAs(const Template& t);

} // namespace mervak
