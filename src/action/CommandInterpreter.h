#pragma once

#include "action/ActionMessages.h"
#include "action/ActionPlatform.h"
#include "action/ActionState.h"
#include "action/GuardedCommand.h"
#include "action/RandomChoice.h"
#include "platform/Language.h"

#include <QList>
#include <QString>

namespace mervak {

// What a command leaves to the runner, in order, once it has changed the state.
struct CommandFollowUp {
    enum class Kind {
        SendText, // `text` runs as an ActionText nested in the one that held the block
        Flush,    // `count` empty waiting key sends
        Paste,    // Ctrl+V typed into the target window
        Sound,    // plays the file `text`; a wave sound is waited for
        Mouse,    // `text` is the argument of a MOUSE block
        PageSet,  // the pending page was set
        Close,    // TANCAR: nothing runs after it
    };
    Kind kind = Kind::SendText;
    QString text;
    int count = 1;
    SoundOutput::Kind sound = SoundOutput::Kind::Wave;
    friend bool operator==(const CommandFollowUp&, const CommandFollowUp&) = default;
};

struct CommandResult {
    QList<CommandFollowUp> followUps;
    // Plain words for the status line, in the interpreter's language, when a command could not be
    // carried out for a reason the user can act on (a missing file, a number out of range); a
    // malformed or unknown block stays silent.
    QString problem;
};

// Decodes command blocks and carries out their keywords in Catalan and Spanish:
// PAGINA, REG, RCW, M-, M+, RM, CM, TRIA/ESCOGE, MOUSE, CARREGA/CARGA,
// SONA/SUENA, ESPERA, EXECUTA, ENGANXA/ENGANCHA, NIVELL, TANCAR/CERRAR,
// LLEGIR/LEER, LLEGEIX/LEE. Effects that need no waiting (state, clipboard,
// launcher, registry, speech) happen here; the rest come back as follow-ups.
// A 16-bit overflow ends the command with the state as it was.
class CommandInterpreter {
public:
    CommandInterpreter(ActionState& state, const ActionPlatform& platform, RandomChoice& random);

    // `block` runs from its "{|" up to, not including, its closing "}".
    CommandResult ExecuteCommand(const QString& block);

    // The language of CommandResult::problem; Catalan until set.
    void setLanguage(Language language) { language_ = language; }

    // Asked before every guarded command; none lets every command run. Must
    // outlive the interpreter.
    void setGuard(const CommandGuard* guard) { guard_ = guard; }

    // "{|SIM text {cert}{fals}": follows the branch chosen by comparing the text
    // with the memory register, exactly.
    CommandResult executeConditional(const QString& block);

private:
    CommandResult failure(ActionProblem problem, const QString& argument) const;
    QString innerValue(const QString& keyword, const QString& argument);
    CommandResult skipped(const GuardedCommand& command) const;
    CommandResult carryOut(const QString& keyword, const QString& argument);
    CommandResult setPage(const QString& argument);
    void writeRegistry(const QString& argument);
    CommandResult load(const QString& argument);
    CommandResult play(const QString& argument);
    CommandResult wait(const QString& argument);
    CommandResult launch(const QString& argument);
    CommandResult paste(const QString& argument);
    CommandResult speak(const QString& argument);
    CommandResult readFile(const QString& argument);

    ActionState& state_;
    ActionPlatform platform_;
    RandomChoice& random_;
    Language language_ = Language::Catalan;
    const CommandGuard* guard_ = nullptr;
};

} // namespace mervak
