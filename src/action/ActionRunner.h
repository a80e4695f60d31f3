#pragma once

#include "action/ActionPlatform.h"
#include "action/ActionState.h"
#include "action/CommandInterpreter.h"
#include "action/RandomChoice.h"
#include "action/RunnerStep.h"
#include "platform/Language.h"

#include <QObject>
#include <QStringList>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

namespace mervak {

// Runs ActionTexts: one at a time, each step strictly after the one before.
// A key run is typed into the window found by the target title and waited for
// (the keyboard's flush) before the next step; waits resume from the event loop
// and never block it. ActionTexts given while one runs queue behind it.
//
// Key runs: a target title activates the window it names; an empty one types into
// whichever window has the focus. A run is typed only into a window that is not
// one of the program's own, that exists and, named by title, took the focus:
// otherwise nothing of it is typed and problem() says why. The title "|" stops the
// ActionText (or the nested text) it occurs in.
class ActionRunner : public QObject {
    Q_OBJECT
public:
    // The title of the window that is to receive keys, or "|" when none may.
    using TargetTitleLookup = std::function<QString()>;
    // Whether the window is one of the program's own, which never receive keys.
    using OwnWindowTest = std::function<bool(WindowId)>;

    // For a program without windows of its own (a command-line tool).
    static bool noOwnWindows(WindowId) { return false; }

    // The generator of TRIA is seeded from the clock. A program with windows of
    // its own must pass `isOwnWindow`.
    ActionRunner(const ActionPlatform& platform, ActionState& state, TargetTitleLookup targetTitle,
                 OwnWindowTest isOwnWindow, QObject* parent = nullptr);

    // Queues the ActionText and, when nothing runs, starts it at once: the
    // steps up to the first wait run inside this call. Ignored once TANCAR ran.
    void SendActionText(const QString& actionText);

    // True from SendActionText() until every queued ActionText has finished.
    bool isBusy() const { return busy_; }

    // Makes TRIA picks repeatable.
    void seedRandom(std::uint64_t seed) { random_.seed(seed); }

    // The language of the problem() messages; Catalan until set.
    void setLanguage(Language language);

    // Asked before every guarded command; see CommandInterpreter::setGuard.
    void setGuard(const CommandGuard* guard) { interpreter_.setGuard(guard); }

signals:
    // Something the user should read in the status line, in the language set:
    // malformed key notation, a window or file not found, a number out of range.
    void problem(const QString& message);
    // A PAGINA command set ActionState::pendingPage to `page`.
    void pendingPageSet(int page);
    // The ActionText that held a CARREGA command ended; `path` names the Template.
    void openTemplateRequested(const QString& path);
    // TANCAR ran: the application runs its closing routine and ends.
    void closeRequested();
    // An ENGANXA command is about to paste the clipboard into TargetWindow.
    void pasteStarted();
    // Running started (true) or every queued ActionText finished (false).
    void busyChanged(bool busy);

private:
    using Resume = std::function<void()>;

    void advance();
    void startNextText();
    void finishText();
    void setBusy(bool busy);
    void waitFor(const std::function<void(Resume)>& start);
    void resume();
    void pushFront(std::deque<RunnerStep> steps);
    void dropLevel(int depth);
    bool pushText(const QString& text, int depth);

    void perform(RunnerStep& step);
    void perform(const step::Keys& keys, int depth);
    void perform(const step::Command& command, int depth);
    void perform(const step::Conditional& conditional, int depth);
    void perform(const step::Flush& flush, int depth);
    void perform(const step::Paste& paste, int depth);
    void perform(const step::Sound& sound, int depth);
    void perform(step::Mouse& mouse, int depth);
    void perform(const step::Pointer& pointer, int depth);
    std::optional<QString> focusTarget(const QString& title, const QString& keys);
    void apply(const CommandResult& result, int depth);
    void close();
    void typeAndWait(const KeyStrokes& strokes);

    ActionPlatform platform_;
    ActionState& state_;
    TargetTitleLookup targetTitle_;
    OwnWindowTest isOwnWindow_;
    Language language_ = Language::Catalan;
    RandomChoice random_;
    CommandInterpreter interpreter_;
    QStringList queued_;
    std::deque<RunnerStep> steps_;
    bool textRunning_ = false;
    bool busy_ = false;
    bool advancing_ = false;
    bool waiting_ = false;
    std::uint64_t waitToken_ = 0;
};

} // namespace mervak
