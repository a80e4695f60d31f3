#pragma once

#include "action/ActionState.h"
#include "action/MacroCatalogue.h"
#include "platform/Settings.h"
#include "session/TrustPolicy.h"
#include "template/Template.h"

#include <QString>

namespace mervak {

// The program-wide state, in one object: the application owns it for the whole
// run and passes it by reference to whatever reads or changes it.
struct Session {
    explicit Session(QString home) : homeFolder(std::move(home)) {
        actionState.WorkingFolder = homeFolder;
    }

    const QString homeFolder;   // MERVAK.INI, the undo snapshot, the page models
    Settings settings;          // MERVAK.INI after its reading rules, the language among them
    Template tmpl;              // the open Template
    ActionState actionState;    // memory register, WorkingFolder, TargetWindow
    MacroCatalogue catalogue;   // MACROS.INI
    bool DevicePresent = false; // an input device started
    TrustPolicy trust;          // what the open Template may do beyond keys and pages

    Language language() const { return settings.language; }
    QString& workingFolder() { return actionState.WorkingFolder; }
    const QString& workingFolder() const { return actionState.WorkingFolder; }
};

} // namespace mervak
