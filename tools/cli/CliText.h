#pragma once

#include "platform/Language.h"
#include "template/MvdFormat.h"
#include "template/TemplateCheck.h"
#include "template/TemplateError.h"

#include <QString>

namespace mervak::cli {

// Exit statuses.
constexpr int kSuccess = 0;
constexpr int kFailure = 1;   // a file could not be read or written
constexpr int kUsage = 2;     // wrong command line, or a change the Template cannot take
constexpr int kWithNotes = 3; // done, but `check` found problems or an export left something out

// The language of MERVAK.INI in `homeFolder` (its "IDIOMA" key), or, without
// that file, the one `lang` (the LANG variable) names: Spanish for "es...",
// else Catalan.
Language chooseLanguage(const QString& homeFolder, const QString& lang);

// Every text the tool prints is in one language, fixed by main before any
// command runs.
void setLanguage(Language language);
Language language();
// The Catalan text `catalan` in that language, through the caption dictionary.
QString text(const QString& catalan);

// The message of a failed file operation, with the path and where it failed.
QString errorText(const TemplateError& error, const QString& path);

QString problemText(const TemplateProblem& problem, int16_t pageCount);
QString lossText(const MvdLoss& loss);

QString generalHelp();
// The help of one command; empty when there is no such command.
QString commandHelp(const QString& command);

} // namespace mervak::cli
