#include "action/ActionRunner.h"

#include "action/ActionMessages.h"
#include "action/ActionTextSplitter.h"
#include "action/SendKeysParser.h"
#include "platform/Checked16.h"

#include <QPointer>
#include <QTimer>

namespace mervak {

namespace {

// Deep enough for any hand-written nesting of SIM, RM, RCW and TRIA; a register
// or clipboard that types itself back ("{|RM }") stops here instead of forever.
constexpr int kMaxDepth = 32;

std::uint64_t clockSeed(Clock& clock) {
    return static_cast<std::uint64_t>(clock.secondsSinceMidnight() * 1000.0);
}

std::deque<RunnerStep> stepsOf(const QString& text, int depth) {
    std::deque<RunnerStep> steps;
    for (const ActionStep& piece : ActionTextSplitter::split(text)) {
        switch (piece.kind) {
        case ActionStep::Kind::Keys:
            steps.push_back({step::Keys{piece.text}, depth});
            break;
        case ActionStep::Kind::Command:
            steps.push_back({step::Command{piece.text}, depth});
            break;
        case ActionStep::Kind::Conditional:
            steps.push_back({step::Conditional{piece.text}, depth});
            break;
        }
    }
    return steps;
}

} // namespace

ActionRunner::ActionRunner(const ActionPlatform& platform, ActionState& state,
                           TargetTitleLookup targetTitle, OwnWindowTest isOwnWindow,
                           QObject* parent)
    : QObject(parent), platform_(platform), state_(state), targetTitle_(std::move(targetTitle)),
      isOwnWindow_(std::move(isOwnWindow)), random_(clockSeed(platform.clock)),
      interpreter_(state, platform_, random_) {}

void ActionRunner::setLanguage(Language language) {
    language_ = language;
    interpreter_.setLanguage(language);
}

void ActionRunner::SendActionText(const QString& actionText) {
    if (state_.closeRequested)
        return;
    queued_.append(actionText);
    setBusy(true);
    advance();
}

// Performs steps until one waits or nothing is left. Re-entry (a signal handler
// calling SendActionText(), a wait that ends at once) only queues work for this loop.
void ActionRunner::advance() {
    if (advancing_)
        return;
    advancing_ = true;
    while (!waiting_) {
        if (steps_.empty()) {
            if (textRunning_)
                finishText();
            if (queued_.isEmpty() || state_.closeRequested)
                break;
            startNextText();
            continue;
        }
        RunnerStep next = std::move(steps_.front());
        steps_.pop_front();
        perform(next);
    }
    advancing_ = false;
    if (!waiting_ && steps_.empty() && !textRunning_ && queued_.isEmpty())
        setBusy(false);
}

void ActionRunner::startNextText() {
    textRunning_ = true;
    steps_ = stepsOf(queued_.takeFirst(), 0);
}

void ActionRunner::finishText() {
    textRunning_ = false;
    if (state_.templateToOpen.isEmpty() || state_.closeRequested)
        return;
    const QString path = state_.templateToOpen;
    state_.templateToOpen.clear();
    emit openTemplateRequested(path);
}

void ActionRunner::setBusy(bool busy) {
    if (busy == busy_)
        return;
    busy_ = busy;
    emit busyChanged(busy);
}

// `start` begins something that calls its Resume once, from the event loop or
// at once; a Resume that comes late (after TANCAR, after the runner is gone)
// does nothing.
void ActionRunner::waitFor(const std::function<void(Resume)>& start) {
    waiting_ = true;
    const std::uint64_t token = ++waitToken_;
    QPointer<ActionRunner> self(this);
    start([self, token] {
        if (self && self->waiting_ && self->waitToken_ == token)
            self->resume();
    });
}

void ActionRunner::resume() {
    waiting_ = false;
    advance();
}

void ActionRunner::pushFront(std::deque<RunnerStep> steps) {
    steps_.insert(steps_.begin(), std::make_move_iterator(steps.begin()),
                  std::make_move_iterator(steps.end()));
}

// Ends the (nested) ActionText whose step at `depth` is running: its remaining
// steps and everything nested in them.
void ActionRunner::dropLevel(int depth) {
    while (!steps_.empty() && steps_.front().depth >= depth)
        steps_.pop_front();
}

bool ActionRunner::pushText(const QString& text, int depth) {
    if (depth > kMaxDepth) {
        steps_.clear();
        emit problem(
            actionMessage(language_, ActionProblem::NestingTooDeep, {QString::number(kMaxDepth)}));
        return false;
    }
    pushFront(stepsOf(text, depth));
    return true;
}

void ActionRunner::perform(RunnerStep& next) {
    std::visit([this, &next](auto& action) { perform(action, next.depth); }, next.action);
}

void ActionRunner::perform(const step::Keys& keys, int depth) {
    const QString title = targetTitle_ ? targetTitle_() : QString();
    if (title == u"|")
        return dropLevel(depth);
    const SendKeysResult parsed = SendKeysParser::parse(keys.keys);
    if (parsed.error)
        return emit problem(keysErrorMessage(language_, *parsed.error, keys.keys));
    if (const std::optional<QString> refusal = focusTarget(title, keys.keys))
        return emit problem(*refusal);
    typeAndWait(parsed.strokes);
}

// Leaves the focus in the window the keys are for; why not, when they must not be typed.
std::optional<QString> ActionRunner::focusTarget(const QString& title, const QString& keys) {
    WindowSystem& windows = platform_.windows;
    if (title.isEmpty()) {
        const WindowId focused = windows.activeWindow();
        if (focused == kNoWindow)
            return actionMessage(language_, ActionProblem::NoTargetWindow, {keys});
        if (isOwnWindow_(focused))
            return actionMessage(language_, ActionProblem::OwnWindow,
                                 {windows.title(focused), keys});
        return std::nullopt;
    }
    const WindowId window = windows.findByTitle(title);
    if (window == kNoWindow)
        return actionMessage(language_, ActionProblem::NoWindow, {title, keys});
    if (isOwnWindow_(window))
        return actionMessage(language_, ActionProblem::OwnWindow, {title, keys});
    if (!windows.activate(window))
        return actionMessage(language_, ActionProblem::NotActivated, {title, keys});
    return std::nullopt;
}

void ActionRunner::typeAndWait(const KeyStrokes& strokes) {
    if (const std::optional<TypingError> error = platform_.keyboard.type(strokes))
        return emit problem(typingErrorMessage(language_, *error));
    waitFor([this](Resume done) { platform_.keyboard.flush(std::move(done)); });
}

void ActionRunner::perform(const step::Command& command, int depth) {
    apply(interpreter_.ExecuteCommand(command.block), depth);
}

void ActionRunner::perform(const step::Conditional& conditional, int depth) {
    apply(interpreter_.executeConditional(conditional.block), depth);
}

void ActionRunner::apply(const CommandResult& result, int depth) {
    if (!result.problem.isEmpty())
        emit problem(result.problem);
    std::deque<RunnerStep> work;
    for (const CommandFollowUp& followUp : result.followUps) {
        switch (followUp.kind) {
        case CommandFollowUp::Kind::SendText:
            if (!pushText(followUp.text, depth + 1))
                return;
            break;
        case CommandFollowUp::Kind::Flush:
            work.push_back({step::Flush{followUp.count}, depth + 1});
            break;
        case CommandFollowUp::Kind::Paste:
            work.push_back({step::Paste{}, depth + 1});
            break;
        case CommandFollowUp::Kind::Sound:
            work.push_back({step::Sound{followUp.text, followUp.sound}, depth + 1});
            break;
        case CommandFollowUp::Kind::Mouse:
            work.push_back({step::Mouse{followUp.text, nullptr}, depth + 1});
            break;
        case CommandFollowUp::Kind::PageSet:
            emit pendingPageSet(followUp.count);
            break;
        case CommandFollowUp::Kind::Close:
            return close();
        }
    }
    pushFront(std::move(work));
}

void ActionRunner::close() {
    steps_.clear();
    queued_.clear();
    emit closeRequested();
}

void ActionRunner::perform(const step::Flush& flush, int depth) {
    if (flush.count > 1)
        steps_.push_front({step::Flush{flush.count - 1}, depth});
    waitFor([this](Resume done) { platform_.keyboard.flush(std::move(done)); });
}

void ActionRunner::perform(const step::Paste&, int) {
    if (!platform_.windows.activate(state_.TargetWindow))
        return emit problem(actionMessage(language_, ActionProblem::TargetGone));
    emit pasteStarted();
    typeAndWait({KeyStroke{Key::Character, U'v', Modifiers{false, true, false}}});
}

// A wave sound is waited for; MIDI music plays on while the ActionText goes on.
void ActionRunner::perform(const step::Sound& sound, int) {
    QPointer<ActionRunner> self(this);
    const auto report = [self](const QString& error) {
        if (self && !error.isEmpty())
            emit self->problem(error);
    };
    if (sound.kind == SoundOutput::Kind::Midi)
        return platform_.sound.play(sound.path, sound.kind, report);
    waitFor([this, sound, report](const Resume& done) {
        platform_.sound.play(sound.path, sound.kind, [report, done](const QString& error) {
            report(error);
            done();
        });
    });
}

void ActionRunner::perform(step::Mouse& mouse, int depth) {
    try {
        if (!mouse.command)
            mouse.command = std::make_shared<MouseCommand>(mouse.argument, platform_.pointer,
                                                           platform_.windows, state_.TargetWindow);
        if (mouse.command->atEnd())
            return;
        std::deque<RunnerStep> work;
        for (const MouseAction& action : mouse.command->next())
            work.push_back({step::Pointer{action}, depth});
        if (!mouse.command->atEnd())
            work.push_back({step::Mouse{mouse.argument, mouse.command}, depth});
        pushFront(std::move(work));
    } catch (const Overflow16&) {
        emit problem(actionMessage(language_, ActionProblem::MouseOutOfRange, {mouse.argument}));
    }
}

void ActionRunner::perform(const step::Pointer& pointer, int) {
    const MouseAction& action = pointer.action;
    if (action.kind == MouseAction::Kind::Event)
        return platform_.pointer.send(action.flags, action.x, action.y);
    const int ms = MouseCommand::clickWaitMs(platform_.clock.secondsSinceMidnight());
    if (ms > 0)
        waitFor([this, ms](Resume done) { QTimer::singleShot(ms, this, std::move(done)); });
}

} // namespace mervak
