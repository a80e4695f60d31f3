#pragma once

#include "dispatch/DeviceSource.h"
#include "platform/Clipboard.h"
#include "session/Session.h"

#include <QObject>
#include <QPointF>
#include <deque>
#include <functional>

namespace mervak {

// Turns presses into Areas fired: the hit test on the current page, the repeat
// suppression, the clip file and the hand-over of the ActionText. It also holds
// the polling of the device, one `tick` per Timer1 interval.
//
// One ActionText runs at a time. A press that arrives while one runs waits in a
// queue, and is hit-tested, suppressed or not, and has its clip file loaded only
// when its turn comes, against the page current then: an ActionText that changes
// page sends the next press to the new page, and a clip never replaces the
// clipboard under an earlier text that still has to paste it.
class PressDispatcher : public QObject {
    Q_OBJECT
public:
    struct Hooks {
        std::function<void(const QString&)> runActionText;
        // True while an ActionText runs; actionTextsFinished() says when it ends.
        std::function<bool()> actionTextRunning;
        std::function<void()> beep;
    };

    // Reads the Template, WorkingFolder, DevicePresent and the language from `session`.
    PressDispatcher(Session& session, Clipboard& clipboard, Hooks hooks, QObject* parent = nullptr);

    void setDevice(DeviceSource* device) { device_ = device; }
    void setVirtualTabletShown(bool shown) { virtualTabletShown_ = shown; }
    void setDrawWithDevice(bool on) { drawWithDevice_ = on; }

    // Fires the Area under the point on the current page, unless it repeats the
    // last one while a device is present and the Area does not repeat readings.
    // Queued while an ActionText runs.
    void DispatchPress(int16_t x, int16_t y);

    // The running ActionTexts ended: the queued presses take their turns.
    void actionTextsFinished();

    // Presses kept at most while an ActionText runs; a further one drops the oldest.
    static constexpr std::size_t kMaxQueuedPresses = 32;

    // A click on the virtual tablet: dispatched by the next tick.
    void setVirtualPress(const QPointF& sheetPoint);

    // A serial packet that starts a press is dispatched when it arrives; the next
    // tick then counts that reading as already polled.
    void deviceReadingArrived(const DeviceReading& reading);

    // One Timer1 interval.
    void tick();

signals:
    // The text of a text clip file, for the window that shows it.
    void clipTextLoaded(const QString& text);
    // Something went wrong in plain words, for the status line.
    void problem(const QString& message);
    // The virtual tablet's busy pointer goes on with a click and off with its dispatch.
    void virtualPressPending(bool pending);
    // A click on the virtual tablet gives the focus to the target.
    void refocusTargetRequested();
    // Every virtual-tablet tick gives it back to the target if another program took it.
    void reclaimTargetFocusRequested();
    // Drawing an Area with the pen.
    void drawWithDevice(int16_t x, int16_t y, mervak::DrawPhase phase);

private:
    struct QueuedPress {
        int16_t x;
        int16_t y;
        bool fromPen; // a device reading: a held pen repeats it on every poll
    };

    static bool isPress(const DeviceReading& reading);
    void queuePress(QueuedPress press);
    void dispatchQueued();
    void fireArea(int16_t x, int16_t y);
    void pressFromDevice(const DeviceReading& reading);
    void virtualTabletTick();
    void normalTick();
    void drawingTick();
    bool loadClip(const Area& area);

    Session& session_;
    Clipboard& clipboard_;
    Hooks hooks_;
    DeviceSource* device_ = nullptr;
    bool virtualTabletShown_ = false;
    bool drawWithDevice_ = false;
    bool dragging_ = false;
    bool arrivalHandled_ = false; // the reading in lastReading_ was dispatched when it arrived
    DeviceReading lastReading_;
    int16_t lastArea_ = 0;
    int16_t emptyPolls_ = 0;
    int16_t virtualX_ = -1;
    int16_t virtualY_ = -1;
    std::deque<QueuedPress> queue_;
    bool dispatching_ = false;
};

} // namespace mervak
