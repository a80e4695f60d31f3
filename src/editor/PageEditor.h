#pragma once

#include "editor/UndoSnapshot.h"
#include "template/Template.h"
#include "template/TemplateError.h"

#include <QString>
#include <optional>

namespace mervak {

// The page commands of the editor over the page operations: each one that
// changes the Template takes the undo snapshot first. Page models live in
// `modelsFolder` (the home folder).
class PageEditor {
public:
    PageEditor(Template& t, UndoSnapshot& snapshot, QString modelsFolder);

    const QString& modelsFolder() const { return modelsFolder_; }

    // Offered only while more than one page exists, so a Template never has none.
    bool canDeletePage() const;
    // Deletes the current page and its Areas; the last page is shown
    // afterwards, its first Area selected.
    std::optional<TemplateError> deletePage();

    // Inserts a page before (PlacingCode::Before) or after the current one and
    // fills it from the model `nompag` (newPageName() gives an empty page).
    std::optional<TemplateError> addPage(const QString& nompag, int16_t placingCode,
                                         const QString& deviceModel);
    // Appends the model's Areas to the current page.
    std::optional<TemplateError> pasteModel(const QString& nompag);
    // Writes the current page's Areas as the model `nompag`.
    std::optional<TemplateError> saveModel(const QString& nompag) const;

private:
    // A failed snapshot does not stop the command; its error is returned when
    // the command itself succeeds.
    std::optional<TemplateError> snapshot();
    void afterChange();

    Template& t_;
    UndoSnapshot& snapshot_;
    QString modelsFolder_;
};

} // namespace mervak
