#pragma once

#include "template/Area.h"
#include "template/Template.h"
#include "template/TemplateError.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <optional>

namespace mervak {

// Page models (".mvp"): the Areas of one page, 8 lines each (X0, Y0, X1, Y1,
// ClipFlag, Clip, ActionText, Flags), no header, no page number.

// The file name a model name gives: kept when it ends in exactly ".MVP" (case
// counts); else ".MVP" appended when it holds no "."; else cut after its first
// "." and "MVP" put there ("teclat.mvp" becomes "teclat.MVP").
QString pageModelFileName(const QString& nompag);

// The model's path in `folder`; an existing file whose name differs only in case is preferred.
QString pageModelPath(const QString& folder, const QString& nompag);

// Models in `folder`: files whose names end in ".mvp" in any case, sorted.
QStringList listPageModels(const QString& folder);

// The records of every Area of `page`, in array order; empty when it has none.
QByteArray writePageModel(const Template& t, int16_t page);

// The Areas of a model file, Page left 0. Reads records until only blanks and
// line ends remain; a cut or malformed record is an error with its line.
std::optional<TemplateError> readPageModel(const QByteArray& bytes, QList<Area>& areas);

} // namespace mervak
