#pragma once

#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "platform/KeyboardOutput.h"
#include "platform/PointerOutput.h"
#include "platform/ProgramLauncher.h"
#include "platform/Registry.h"
#include "platform/SoundOutput.h"
#include "platform/SpeechOutput.h"
#include "platform/WindowSystem.h"

namespace mervak {

// The OS effects an ActionText may cause. Each must outlive the runner.
struct ActionPlatform {
    KeyboardOutput& keyboard;
    WindowSystem& windows;
    PointerOutput& pointer;
    Clipboard& clipboard;
    ProgramLauncher& launcher;
    SoundOutput& sound;
    SpeechOutput& speech;
    Clock& clock;
    Registry& registry;
};

} // namespace mervak
