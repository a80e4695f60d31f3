#pragma once

#include "action/SendKeysParser.h"
#include "platform/KeyboardOutput.h"
#include "platform/Language.h"

#include <QString>
#include <QStringList>

namespace mervak {

// What went wrong while an ActionText ran, for the status line.
enum class ActionProblem {
    KeysNotRead,          // %1 the key run, %2 what is wrong, %3 the 1-based character
    UnknownKeyName,       // %1 the braced text
    BadRepeatCount,       // %1 the braced text
    UnclosedBrace,        //
    UnclosedGroup,        //
    UnopenedGroup,        //
    KeysNotTyped,         // %1 the keyboard's reason
    NoWindow,             // %1 the target title, %2 the key run
    NoTargetWindow,       // %1 the key run
    NotActivated,         // %1 the target title, %2 the key run
    OwnWindow,            // %1 the window's title, %2 the key run
    TargetGone,           //
    NestingTooDeep,       // %1 the deepest nesting
    NumberOutOfRange,     // %1 the block, without its closing "}"
    MouseOutOfRange,      // %1 the mouse sub-commands
    WaitOutOfRange,       // %1 the count
    ProgramNotStarted,    // %1 the command line
    NoDisplayNamed,       // the keyboard's reasons, after KeysNotTyped
    DisplayNotOpened,     // %1 the display's name
    DisplayLost,          //
    NoKeyboardMap,        //
    KeyNotTypeable,       // %1 the key
    NoFreeKeycode,        // %1 the key
    NoModifierKey,        // %1 the modifier
    CompositorNotReached, // %1 the Wayland display's name
    NoVirtualKeyboard,    //
    RemoteControlRefused, //
    FileNotFound,         // %1 the path
    FileNotRead,          // %1 the path
    NotationError,        // %1 what is wrong, %2 the 1-based character
    NotTrusted,           // %1 the command and what it names
};

// The text of the problem in the language, its "%n" filled from `arguments`.
QString actionMessage(Language language, ActionProblem problem, const QStringList& arguments = {});

// The whole status line of a key run that could not be read.
QString keysErrorMessage(Language language, const SendKeysError& error, const QString& keys);

// What is wrong with an ActionText as it is typed, and where.
QString notationErrorMessage(Language language, const SendKeysError& error);

// The whole status line of keys the keyboard could not type.
QString typingErrorMessage(Language language, const TypingError& error);

} // namespace mervak
