#pragma once

#include "template/Template.h"
#include "template/TemplateError.h"

#include <QByteArray>
#include <optional>

namespace mervak {

// Reads the bytes of a ".mvw" file (Windows-1252, or UTF-8 when valid and
// multi-byte) into `t`, which must be freshly emptied. Version 1 clips become
// "{|Enganxa clip}" in front of the ActionText. A version 2 file laid out with
// 9-line area records (what "save as" writes) is read as such, without that
// conversion. Versions above 2 or revisions above 0 give message 14; versions
// other than 1 and 2 read nothing more. Returns the error, with its line, when
// the file does not read; `t` is then left half-filled for the caller to discard.
std::optional<TemplateError> readMvw(const QByteArray& bytes, Template& t);

} // namespace mervak
