#pragma once

#include "platform/Language.h"

#include <QString>

namespace mervak {

// The messages Template files report.
namespace TemplateMessage = Msg;

// What a Template file operation reports instead of throwing: a numbered message,
// the text shown after it (the path when the message names one), where reading
// failed, and a plain reason from the system when there is one.
struct TemplateError {
    int message = TemplateMessage::ReadError;
    QString argument;
    int line = 0; // line of a text file or 1-based record of a binary one; 0 when not known
    QString detail;

    QString text(Language language) const { return Message(language, message) + argument; }
};

} // namespace mervak
