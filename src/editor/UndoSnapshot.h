#pragma once

#include "template/Template.h"
#include "template/TemplateError.h"

#include <QString>
#include <optional>

namespace mervak {

// The one-step undo copy of the whole Template: "tmp.bin" in the home folder,
// in the version 2 layout. A new snapshot replaces the previous one.
class UndoSnapshot {
public:
    enum class Mode : int16_t { BeforeEdit = 0, BeforePageEdit = 1, Undo = 2 };

    explicit UndoSnapshot(QString homeFolder);

    QString snapshotPath() const; // home folder + "/tmp.bin"

    // Modes 0 and 1 take a snapshot of `t`; mode 2 undoes.
    std::optional<TemplateError> run(Template& t, Mode mode);

    std::optional<TemplateError> take(const Template& t);

    // Puts back the Template of the last snapshot, keeping the user's file name:
    // the snapshot is copied to "tmp.mvw" and read from there. When there is no
    // snapshot or it does not read, `t` is left as it was.
    std::optional<TemplateError> undo(Template& t);

    // True once a snapshot was taken for the open Template and not yet undone:
    // the one left by an earlier run, or by another Template, is not its past.
    bool canUndo() const { return canUndo_; }
    // The open Template was replaced by another.
    void forget() { canUndo_ = false; }

private:
    QString homeFolder_;
    bool canUndo_ = false;
};

} // namespace mervak
