#pragma once

#include "template/Template.h"
#include "template/TemplateError.h"

#include <QString>
#include <optional>

namespace mervak {

// Where unsaved edits go when the program has to end at once (a TANCAR command
// gives no chance to ask): "recuperacio.mvw" in the home folder, beside the
// undo snapshot. It stays there until the user removes it.
class RecoveryFile {
public:
    explicit RecoveryFile(QString homeFolder);

    QString path() const;
    bool exists() const;

    // Writes `t` when it has unsaved changes, in the layout that keeps every
    // field; nothing otherwise.
    std::optional<TemplateError> keepUnsaved(const Template& t) const;

private:
    QString homeFolder_;
};

} // namespace mervak
