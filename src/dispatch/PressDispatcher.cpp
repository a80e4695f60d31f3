#include "dispatch/PressDispatcher.h"

#include "action/ActionMessages.h"
#include "platform/Checked16.h"
#include "platform/Language.h"
#include "platform/PathResolver.h"
#include "platform/TextEncoding.h"
#include "template/AreaHitTest.h"

#include <QFile>
#include <QScopedValueRollback>

namespace mervak {

namespace {

constexpr int16_t kPollsToForget = 5;
constexpr int16_t kPollsToEndDrawing = 12;

} // namespace

PressDispatcher::PressDispatcher(Session& session, Clipboard& clipboard, Hooks hooks,
                                 QObject* parent)
    : QObject(parent), session_(session), clipboard_(clipboard), hooks_(std::move(hooks)) {}

void PressDispatcher::DispatchPress(int16_t x, int16_t y) {
    queuePress({x, y, false});
}

void PressDispatcher::actionTextsFinished() {
    dispatchQueued();
}

// Readings of a pen held during a long ActionText are kept once: they would all
// hit the same Area, and a full queue would push out the presses that matter.
void PressDispatcher::queuePress(QueuedPress press) {
    if (press.fromPen && !queue_.empty() && queue_.back().fromPen && queue_.back().x == press.x &&
        queue_.back().y == press.y)
        return;
    if (queue_.size() == kMaxQueuedPresses) {
        queue_.pop_front();
        emit problem(
            TranslateCaption(session_.language(), QStringLiteral("Massa pulsacions en espera: "
                                                                 "s'ha descartat la més antiga")));
    }
    queue_.push_back(press);
    dispatchQueued();
}

// Re-entered when an ActionText ends inside the hand-over: the loop goes on.
void PressDispatcher::dispatchQueued() {
    if (dispatching_)
        return;
    const QScopedValueRollback guard(dispatching_, true);
    while (!queue_.empty() && !hooks_.actionTextRunning()) {
        const QueuedPress next = queue_.front();
        queue_.pop_front();
        fireArea(next.x, next.y);
    }
}

void PressDispatcher::fireArea(int16_t x, int16_t y) {
    const AreaHit hit = FindArea(session_.tmpl, x, y);
    if (hit.index == 0)
        return;
    const Area area = session_.tmpl.area(hit.index);
    if (session_.DevicePresent && hit.index == lastArea_ && area.Flags == 0)
        return;
    lastArea_ = hit.index;
    if (!area.Clip.isEmpty() && !loadClip(area))
        return;
    if (!area.ActionText.isEmpty())
        hooks_.runActionText(area.ActionText);
}

// A missing clip file ends the press, as a file error would; the status line says why.
bool PressDispatcher::loadClip(const Area& area) {
    clipboard_.clear();
    const QString path = resolveStoredPath(area.Clip, session_.workingFolder());
    // Skipped like a guarded command: the ActionText still runs.
    if (!session_.trust.permits({GuardedCommand::Kind::ReadFile, QStringLiteral("CLIP"), path})) {
        const QString skipped = actionMessage(session_.language(), ActionProblem::NotTrusted,
                                              {QStringLiteral("CLIP ") + path});
        qInfo("%s", qPrintable(skipped));
        emit problem(skipped);
        return true;
    }
    const QString failure = Message(session_.language(), Msg::ReadError) + path;
    if (area.ClipFlag == 1) {
        if (clipboard_.setPictureFromFile(path))
            return true;
        emit problem(failure);
        return false;
    }
    if (area.ClipFlag != 0)
        return true;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        emit problem(failure);
        return false;
    }
    const QString text = decodeFileText(file.readAll()).text;
    emit clipTextLoaded(text);
    clipboard_.setText(text);
    return true;
}

void PressDispatcher::setVirtualPress(const QPointF& sheetPoint) {
    virtualX_ = roundToInt16(sheetPoint.x());
    virtualY_ = roundToInt16(sheetPoint.y());
    emit virtualPressPending(true);
    emit refocusTargetRequested();
}

bool PressDispatcher::isPress(const DeviceReading& reading) {
    return reading.status && reading.x != 0 && reading.y != 0;
}

void PressDispatcher::pressFromDevice(const DeviceReading& reading) {
    if (session_.tmpl.SoundActive != 0)
        hooks_.beep();
    emptyPolls_ = 0;
    queuePress({reading.x, reading.y, true});
}

void PressDispatcher::deviceReadingArrived(const DeviceReading& reading) {
    const bool startsPress = isPress(reading) && !isPress(lastReading_);
    lastReading_ = reading;
    if (!startsPress || virtualTabletShown_ || drawWithDevice_)
        return;
    arrivalHandled_ = true;
    pressFromDevice(reading);
}

void PressDispatcher::tick() {
    try {
        if (virtualTabletShown_)
            virtualTabletTick();
        else if (!drawWithDevice_)
            normalTick();
        else
            drawingTick();
    } catch (const Overflow16&) {
        emit problem(TranslateCaption(session_.language(), QStringLiteral("Desbordament numèric")));
    }
}

void PressDispatcher::virtualTabletTick() {
    emit reclaimTargetFocusRequested();
    if (virtualX_ != -1) {
        hooks_.beep();
        const int16_t x = virtualX_;
        virtualX_ = -1;
        DispatchPress(x, virtualY_);
        emit virtualPressPending(false);
    }
}

void PressDispatcher::normalTick() {
    const DeviceReading reading = device_ ? device_->read() : DeviceReading{};
    const bool alreadyPolled = arrivalHandled_ && reading.x == lastReading_.x &&
                               reading.y == lastReading_.y && reading.status == lastReading_.status;
    arrivalHandled_ = false;
    lastReading_ = reading;
    if (alreadyPolled)
        return;
    if (isPress(reading)) {
        pressFromDevice(reading);
    } else if (lastArea_ != 0) {
        // A press that is not a device reading leaves the count as it was, so
        // it is saturated rather than compared for equality.
        if (emptyPolls_ < kPollsToForget)
            emptyPolls_ = add16(emptyPolls_, 1);
        if (emptyPolls_ >= kPollsToForget)
            lastArea_ = 0;
    }
}

void PressDispatcher::drawingTick() {
    const DeviceReading reading = device_ ? device_->read() : DeviceReading{};
    if (!reading.status) {
        // Counting stops at the end of a drawing, so hours of drawing mode never overflow.
        if (emptyPolls_ < kPollsToEndDrawing)
            emptyPolls_ = add16(emptyPolls_, 1);
        if (emptyPolls_ == 1)
            hooks_.beep();
        if (emptyPolls_ >= kPollsToEndDrawing && dragging_) {
            hooks_.beep();
            dragging_ = false;
            emit drawWithDevice(reading.x, reading.y, DrawEnd);
        }
        return;
    }
    emptyPolls_ = 0;
    if (reading.x != 0 && reading.y != 0) {
        emit drawWithDevice(reading.x, reading.y, dragging_ ? DrawMove : DrawStart);
        dragging_ = true;
    }
}

} // namespace mervak
