#pragma once

#include <QString>

namespace mervak {

// The classic numeric-prefix conversion: blanks, tabs and line feeds are skipped
// wherever they are; then "&H" (hexadecimal), "&O" or "&" (octal), or a decimal
// number with optional sign, fraction and exponent ("E" or "D"). Reading stops at
// the first character that does not fit; no digits at all gives 0. Hexadecimal
// and octal values of up to 16 bits are read as signed 16-bit ("&HFFFF" is -1),
// up to 32 bits as signed 32-bit.
double Val(const QString& text);

// True when the whole text, trimmed of blanks, is one number in a form Val reads.
// An empty or blank text is not numeric; " 5 " is.
bool IsNumeric(const QString& text);

// How a number is written back as text: integers without a decimal point, other
// values with up to 15 significant digits, as the classic Str/CStr conversion.
QString numberToText(double value);

} // namespace mervak
