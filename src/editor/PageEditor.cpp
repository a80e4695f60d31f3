#include "editor/PageEditor.h"

#include "editor/AreaSelection.h"
#include "platform/Checked16.h"
#include "template/PageOperations.h"

namespace mervak {

namespace {

std::optional<TemplateError> overflowError() {
    return TemplateError{TemplateMessage::GeneralError, {}, 0, QStringLiteral("16-bit overflow")};
}

} // namespace

PageEditor::PageEditor(Template& t, UndoSnapshot& snapshot, QString modelsFolder)
    : t_(t), snapshot_(snapshot), modelsFolder_(std::move(modelsFolder)) {}

std::optional<TemplateError> PageEditor::snapshot() {
    return snapshot_.run(t_, UndoSnapshot::Mode::BeforePageEdit);
}

void PageEditor::afterChange() {
    t_.SelectedArea = 0;
    t_.CurrentArea = 0;
    t_.refreshPageAreaCount();
    t_.Modified = true;
}

bool PageEditor::canDeletePage() const {
    return hasOtherPages(t_);
}

std::optional<TemplateError> PageEditor::deletePage() {
    if (!canDeletePage())
        return std::nullopt;
    const auto snapshotError = snapshot();
    mervak::deletePage(t_);
    selectFirstAreaOfPage(t_);
    return snapshotError;
}

std::optional<TemplateError> PageEditor::addPage(const QString& nompag, int16_t placingCode,
                                                 const QString& deviceModel) {
    const auto snapshotError = snapshot();
    try {
        if (auto error = openPageModel(t_, modelsFolder_, nompag, placingCode, deviceModel))
            return error;
    } catch (const Overflow16&) {
        return overflowError();
    }
    afterChange();
    return snapshotError;
}

std::optional<TemplateError> PageEditor::pasteModel(const QString& nompag) {
    const auto snapshotError = snapshot();
    try {
        if (auto error = pastePageModel(t_, modelsFolder_, nompag))
            return error;
    } catch (const Overflow16&) {
        return overflowError();
    }
    afterChange();
    return snapshotError;
}

std::optional<TemplateError> PageEditor::saveModel(const QString& nompag) const {
    return savePageModel(t_, modelsFolder_, nompag);
}

} // namespace mervak
