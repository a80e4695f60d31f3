#pragma once

#include "platform/WindowSystem.h"

#include <QString>
#include <cstdint>
#include <optional>

namespace mervak {

// The program-wide state that ActionTexts read and change. The application owns
// it for the whole run and hands it to the ActionRunner by reference.
struct ActionState {
    // The memory register of M+, M-, CM and RM: a number written as text or any
    // text; empty at start, never saved.
    QString memoryRegister;
    // Process ids of programs started by EXECUTA, each in upper-case hexadecimal
    // followed by one blank ("1A2B 1A2C ").
    QString launchedPrograms;
    // The page a PAGINA command asks for; the application clears it when it
    // changes page.
    std::optional<std::int16_t> pendingPage;
    // The local folder relative file names are resolved against; CARREGA moves it.
    QString WorkingFolder;
    // LLEGIR and LLEGEIX do nothing while this is false.
    bool speechAvailable = false;
    // The voice LLEGIR speaks with.
    int speakerNumber = 0;
    // The window that receives pasted content and whose corner mouse commands
    // measure from; kept up to date by the application.
    WindowId TargetWindow = kNoWindow;
    // The Template file a CARREGA command named, found on disk; handed to the
    // application (and cleared) when the ActionText that held it ends.
    QString templateToOpen;
    // Set by TANCAR: the application runs its closing routine and ends. Nothing
    // runs after it.
    bool closeRequested = false;
};

} // namespace mervak
