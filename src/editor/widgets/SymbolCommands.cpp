#include "editor/widgets/SymbolCommands.h"

#include "editor/widgets/EditorController.h"
#include "editor/widgets/SymbolPicker.h"
#include "editor/widgets/WordSheetDialog.h"
#include "platform/Checked16.h"
#include "sheet/WordSheet.h"

namespace mervak {

SymbolCommands::SymbolCommands(Context context, SymbolLibraries& libraries, QObject* parent)
    : QObject(parent), context_(std::move(context)), libraries_(libraries) {}

const SymbolLibrary& SymbolCommands::library() {
    libraries_.setPictureFolders(context_.session.settings.pictureFolders);
    return libraries_.library(context_.session.language());
}

QString SymbolCommands::pickSymbol(const QString& words) {
    const Language language = context_.session.language();
    SymbolPicker picker(library(), language, &context_.window);
    picker.search(words);
    if (picker.exec() != QDialog::Accepted)
        return {};
    return picker.chosenPicture();
}

void SymbolCommands::chooseSymbolForArea() {
    Template& t = context_.session.tmpl;
    const int16_t index = t.SelectedArea;
    if (index < 1 || index > t.AreaCount()) {
        context_.beep();
        return;
    }
    const AreaCell current = t.area(index).Cell.value_or(AreaCell{});
    const QString picture = pickSymbol(current.Label);
    if (picture.isEmpty())
        return;
    const Template before = t;
    AreaCell changed = current;
    changed.Picture = picture;
    t.area(index).Cell = changed;
    t.Modified = true;
    context_.editor.keepForUndo(before);
    context_.editor.refresh();
}

void SymbolCommands::makeWordSheet() {
    const Language language = context_.session.language();
    WordSheetDialog dialog(language, &context_.window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SymbolLibrary& searched = library();
    QStringList unmatched;
    const auto pictureFor = [&](const QString& word) {
        const Symbol* best = searched.bestFor(word);
        if (!best)
            unmatched.append(word);
        return best ? SymbolLibrary::cellPicture(*best) : QString();
    };
    Template& t = context_.session.tmpl;
    const Template before = t;
    int16_t first = 0;
    try {
        first = appendWordSheet(t, dialog.words(), dialog.sheetLayout(), pictureFor,
                                t.SoundActive != 0, language);
    } catch (const Overflow16&) {
        context_.showStatus(TranslateCaption(
            language, QStringLiteral("La plantilla passaria de 32767 àrees o pàgines: no s'ha "
                                     "fet res.")));
        return;
    }
    if (first == 0)
        return;
    context_.editor.keepForUndo(before);
    context_.editor.refresh();
    context_.editor.areas().showPage(first);
    if (!unmatched.isEmpty())
        context_.showStatus(TranslateCaption(language, QStringLiteral("Sense símbol: %1"))
                                .arg(unmatched.join(QStringLiteral(", "))));
}

} // namespace mervak
