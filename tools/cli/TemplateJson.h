#pragma once

#include "template/Template.h"

#include <QByteArray>

namespace mervak::cli {

// The Template as an indented JSON document named with the model's field names.
QByteArray templateJson(const Template& t);

} // namespace mervak::cli
