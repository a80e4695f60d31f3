#pragma once

#include "devices/SerialLink.h"
#include "platform/Language.h"

#include <QString>

namespace mervak {

// Plain-words messages of the serial tablet, each naming the port.

QString openFailedText(Language language, const QString& port, OpenFailure failure);
QString portLostText(Language language, const QString& port);
QString noAnswerText(Language language, const QString& port);
QString wrongAnswerText(Language language, const QString& port);
QString notTabletText(Language language, const QString& port);
QString noTabletFoundText(Language language, int portsTried);

} // namespace mervak
