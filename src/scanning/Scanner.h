#pragma once

#include "platform/Clock.h"
#include "scanning/ScanLayout.h"
#include "scanning/ScanSettings.h"
#include "scanning/ScanText.h"
#include "scanning/SwitchTiming.h"

#include <QObject>
#include <functional>
#include <optional>

namespace mervak {

// Switch scanning of the current page: the rows or items are highlighted in
// turn and a switch press chooses. With one switch the highlight moves every
// interval by itself; with two, the advance switch moves it (nothing shows until
// its first press) and the select switch chooses. Choosing a row enters it with
// its first item highlighted (a row of one item is that item); choosing an item
// asks for a press at its point, then scanning waits for the pause after a
// choice and for the ActionText to end, and starts again from the top of the
// page that is current then.
//
// It keeps no timer: the owner calls update() when the clock reaches
// nextWakeMs(), and whenever an ActionText ends.
class Scanner : public QObject {
    Q_OBJECT
public:
    enum class Switch { Advance, Select };

    struct Hooks {
        // The current page's rows, read at each start from the top.
        std::function<QList<ScanRow>()> rows;
        std::function<bool()> actionTextRunning;
        // What auditory scanning reads for an Area.
        std::function<QString(int16_t area)> label;
        // Where scanning goes once the Area's press is done, if it says.
        std::function<std::optional<ScanLevel>(int16_t area)> levelAfter;
    };

    Scanner(Clock& clock, Hooks hooks, QObject* parent = nullptr);

    // Starts from the top when the settings turn scanning on, stops it when off.
    void setSettings(const ScanSettings& settings);
    const ScanSettings& settings() const { return settings_; }
    bool isOn() const { return settings_.isOn(); }

    void switchDown(Switch which);
    void switchUp(Switch which);
    // A switch's long press or an Area's level block.
    void goToLevel(ScanLevel level);
    // The page or its Areas may have changed: when the rows differ, start again
    // from the top (once a press under way is done).
    void restart();
    // Does whatever is due by now.
    void update();
    // When update() has something to do next; none while scanning waits for a
    // switch or for the ActionText to end.
    std::optional<std::int64_t> nextWakeMs() const;

signals:
    // The Areas of the highlighted row or item; empty when none is.
    void highlightChanged(const QList<int16_t>& areas);
    void pressRequested(int16_t x, int16_t y);
    void speakRequested(const QString& text);
    // nextWakeMs() may have changed.
    void scheduleChanged();

private:
    bool automatic() const { return settings_.switches == 1; }
    QList<ScanRow> groups() const;
    SwitchTiming& timing(Switch which);
    void handle(Switch which, SwitchGesture gesture, std::int64_t now);
    void choose(std::int64_t now);
    void advance(std::int64_t now);
    void startRound(int index, std::int64_t now);
    void startTop(std::optional<int> row, std::int64_t now);
    void finishChoice(std::int64_t now);
    void show();

    Clock& clock_;
    Hooks hooks_;
    ScanSettings settings_;
    SwitchTiming advanceTiming_;
    SwitchTiming selectTiming_;
    QList<ScanRow> rows_;
    bool inRow_ = false;
    int row_ = -1;
    int index_ = -1; // in groups(); -1: nothing highlighted
    int rounds_ = 0;
    bool resting_ = false;
    std::optional<std::int64_t> stepAt_;
    std::optional<std::int64_t> ignoreUntil_;
    // After a press: where to start again once the pause is over and the ActionText ended.
    bool choicePending_ = false;
    bool pageChanged_ = false;
    std::optional<int> rowAfterChoice_;
};

} // namespace mervak
