#pragma once

#include "platform/Language.h"

#include <QString>

namespace mervak {

// Numbers of the language tables' messages that Template files report.
namespace TemplateMessage {
constexpr int WrongFormat = 2;    // "Format incorrecte"
constexpr int ReadError = 3;      // "Error en llegir el fitxer " + path
constexpr int NewerVersion = 14;  // the file was made by a newer version
constexpr int FileNotFound = 15;  // "... no troba el fitxer " + path
constexpr int GeneralError = 104; // "Error": a file could not be written
} // namespace TemplateMessage

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
