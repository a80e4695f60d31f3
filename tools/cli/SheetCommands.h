#pragma once

#include "Commands.h"

namespace mervak::cli {

// The commands that draw sheets: they need a QGuiApplication (fonts, pictures).
bool drawsSheets(const QString& command);

// `render FILE.mvw --page P -o OUT.png|OUT.pdf [--dpi D]` (RenderCommand.cpp)
int runRender(const QStringList& arguments, CommandContext& c);

// `cell FILE.mvw --page P --area N [--symbol ID | --picture PATH] [--label TEXT]
// [--colour #RRGGBB]` (CellCommand.cpp)
int runCell(const QStringList& arguments, CommandContext& c);

} // namespace mervak::cli
