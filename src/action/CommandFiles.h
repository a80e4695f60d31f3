#pragma once

#include <QString>

namespace mervak {

// The files command blocks name, found on this system.
class CommandFiles {
public:
    // SONA, ENGANXA and LLEGEIX: a name is relative unless it has a drive letter
    // ("C:\...") or begins with "/"; relative ones (a leading "\" too) are taken
    // under `workingFolder`. The file is matched without regard to case; when
    // none exists the converted path is returned as it stands.
    static QString resolve(const QString& name, const QString& workingFolder);

    // CARREGA: the name always under `workingFolder`; the existing file matched
    // without regard to case, or empty when there is none.
    static QString findTemplate(const QString& name, const QString& workingFolder);
};

} // namespace mervak
