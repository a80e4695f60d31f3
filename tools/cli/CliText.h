#pragma once

#include "template/MvdFormat.h"
#include "template/TemplateCheck.h"
#include "template/TemplateError.h"

#include <QString>

namespace mervak::cli {

// Exit statuses.
constexpr int kSuccess = 0;
constexpr int kFailure = 1;   // a file could not be read or written
constexpr int kUsage = 2;     // wrong command line
constexpr int kWithNotes = 3; // done, but `check` found problems or an export left something out

// The message of a failed file operation, in Catalan, with the path and where it failed.
QString errorText(const TemplateError& error, const QString& path);

QString problemText(const TemplateProblem& problem, int16_t pageCount);
QString lossText(const MvdLoss& loss);

QString generalHelp();
// The help of one command; empty when there is no such command.
QString commandHelp(const QString& command);

} // namespace mervak::cli
