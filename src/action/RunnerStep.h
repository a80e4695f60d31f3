#pragma once

#include "action/MouseCommand.h"
#include "platform/SoundOutput.h"

#include <QString>
#include <memory>
#include <variant>

namespace mervak {

// The steps an ActionRunner performs, one at a time, in order. Commands and
// nested ActionTexts put their own steps in front of the ones still to come.
namespace step {

struct Keys {
    QString keys;
};
struct Command {
    QString block;
};
struct Conditional {
    QString block;
};
// `count` empty waiting key sends.
struct Flush {
    int count = 1;
};
struct Paste {};
struct Sound {
    QString path;
    SoundOutput::Kind kind = SoundOutput::Kind::Wave;
};
// The next word of a mouse command; the command starts (reads the pointer) on
// its first word.
struct Mouse {
    QString argument;
    std::shared_ptr<MouseCommand> command;
};
struct Pointer {
    MouseAction action;
};

} // namespace step

struct RunnerStep {
    std::variant<step::Keys, step::Command, step::Conditional, step::Flush, step::Paste,
                 step::Sound, step::Mouse, step::Pointer>
        action;
    // 0 for the ActionText itself, one more for each nested ActionText (RM, RCW,
    // TRIA, SIM branches) and for the work of a command.
    int depth = 0;
};

} // namespace mervak
