#pragma once

#include "template/Template.h"
#include "template/TemplateError.h"

#include <QString>
#include <optional>

namespace mervak {

// Where a new page goes, from the page frame's two option buttons: "Inserir
// abans" (index 0) gives 1, "Inserir després" (index 1) gives 2.
namespace PlacingCode {
constexpr int16_t Before = 1;
constexpr int16_t After = 2;
} // namespace PlacingCode

// Minus (2 x index 1 + index 0), where a chosen button counts -1.
int16_t placingCode(bool index0Chosen, bool index1Chosen);

// The model name that stands for an empty page.
QString newPageName();

// Inserts an empty page before (code 1) or after (any other code) the current
// page and makes it current; later pages and their Areas are renumbered.
// Throws Overflow16, changing nothing, past 32767 pages.
void insertPage(Template& t, int16_t placingCode);

// Deletes the current page and its Areas; later pages move down one; the last
// page becomes current and CurrentArea 1. Deleting the only page leaves 0 pages:
// offer the command only while hasOtherPages().
void deletePage(Template& t);
// True while a page other than the current one exists: the editor and the
// command-line tool delete pages only then, so that a Template keeps one.
bool hasOtherPages(const Template& t);

// Writes the current page's Areas to the model `nompag` in `folder`.
std::optional<TemplateError> savePageModel(const Template& t, const QString& folder,
                                           const QString& nompag);

// Inserts a page with `placingCode` and fills it from the model, unless the model
// is newPageName() or the device model is "DANCEPAD" or "TRUSTMASTER". The model is
// read first: when it does not read (message 3 and the path), nothing changes.
// Throws Overflow16, changing nothing, past 32767 pages or Areas.
std::optional<TemplateError> openPageModel(Template& t, const QString& folder,
                                           const QString& nompag, int16_t placingCode,
                                           const QString& deviceModel);

// Appends the model's Areas to the current page. Same errors as openPageModel.
std::optional<TemplateError> pastePageModel(Template& t, const QString& folder,
                                            const QString& nompag);

} // namespace mervak
