#include "scanning/Scanner.h"

#include <QStringList>

namespace mervak {

Scanner::Scanner(Clock& clock, Hooks hooks, QObject* parent)
    : QObject(parent), clock_(clock), hooks_(std::move(hooks)) {}

void Scanner::setSettings(const ScanSettings& settings) {
    settings_ = settings;
    advanceTiming_.setTimes(settings.acceptanceMs, settings.longPressMs);
    selectTiming_.setTimes(settings.acceptanceMs, settings.longPressMs);
    choicePending_ = false;
    ignoreUntil_.reset();
    if (settings_.isOn()) {
        rows_ = hooks_.rows();
        startTop(std::nullopt, clock_.monotonicMs());
    } else {
        rows_.clear();
        stepAt_.reset();
        index_ = -1;
        show();
    }
    emit scheduleChanged();
}

QList<ScanRow> Scanner::groups() const {
    QList<ScanRow> groups;
    if (inRow_) {
        for (const ScanItem& item : rows_.value(row_))
            groups.append({item});
    } else if (settings_.mode == ScanSettings::Mode::Rows) {
        groups = rows_;
    } else {
        for (const ScanRow& row : rows_)
            for (const ScanItem& item : row)
                groups.append({item});
    }
    return groups;
}

SwitchTiming& Scanner::timing(Switch which) {
    return which == Switch::Advance ? advanceTiming_ : selectTiming_;
}

void Scanner::switchDown(Switch which) {
    if (!isOn())
        return;
    const std::int64_t now = clock_.monotonicMs();
    const bool ignored = choicePending_ || (ignoreUntil_ && now < *ignoreUntil_);
    if (const auto gesture = timing(which).down(now, ignored))
        handle(which, *gesture, now);
    emit scheduleChanged();
}

void Scanner::switchUp(Switch which) {
    if (!isOn())
        return;
    const std::int64_t now = clock_.monotonicMs();
    if (const auto gesture = timing(which).up(now))
        handle(which, *gesture, now);
    emit scheduleChanged();
}

void Scanner::handle(Switch which, SwitchGesture gesture, std::int64_t now) {
    // With one switch it is the select switch; the other does nothing.
    if (automatic() && which == Switch::Advance)
        return;
    if (gesture == SwitchGesture::LongPress &&
        settings_.longPress != ScanSettings::LongPress::None) {
        goToLevel(settings_.longPress == ScanSettings::LongPress::PreviousLevel
                      ? ScanLevel::Previous
                      : ScanLevel::Initial);
        return;
    }
    if (which == Switch::Advance)
        advance(now);
    else if (resting_)
        startTop(std::nullopt, now);
    else
        choose(now);
}

void Scanner::goToLevel(ScanLevel level) {
    if (!isOn() || choicePending_)
        return;
    const std::int64_t now = clock_.monotonicMs();
    startTop(level == ScanLevel::Previous && inRow_ ? std::optional(row_) : std::nullopt, now);
    emit scheduleChanged();
}

void Scanner::restart() {
    if (!isOn())
        return;
    QList<ScanRow> rows = hooks_.rows();
    if (rows == rows_)
        return;
    if (choicePending_) {
        pageChanged_ = true;
        return;
    }
    rows_ = std::move(rows);
    startTop(std::nullopt, clock_.monotonicMs());
    emit scheduleChanged();
}

void Scanner::choose(std::int64_t now) {
    const QList<ScanRow> all = groups();
    if (index_ < 0 || index_ >= all.size())
        return;
    const ScanRow& group = all[index_];
    advanceTiming_.spend();
    selectTiming_.spend();
    ignoreUntil_ = now + settings_.pauseMs;
    if (group.size() > 1) {
        inRow_ = true;
        row_ = index_;
        startRound(0, now + settings_.pauseMs);
        return;
    }
    const ScanItem item = group.first();
    const auto level = hooks_.levelAfter(item.area);
    rowAfterChoice_ = level == ScanLevel::Previous && inRow_ ? std::optional(row_) : std::nullopt;
    choicePending_ = true;
    pageChanged_ = false;
    stepAt_.reset();
    emit pressRequested(item.x, item.y);
}

void Scanner::advance(std::int64_t now) {
    const qsizetype count = groups().size();
    if (count == 0) {
        stepAt_.reset();
        return;
    }
    if (index_ + 1 < count) {
        ++index_;
    } else {
        index_ = 0;
        ++rounds_;
    }
    if (automatic() && settings_.loops > 0 && rounds_ >= settings_.loops) {
        if (inRow_) { // the pupil did not want this row after all
            startTop(row_, now);
            return;
        }
        resting_ = true;
        index_ = -1;
        stepAt_.reset();
        show();
        return;
    }
    if (automatic())
        stepAt_ = now + settings_.intervalMs + (index_ == 0 ? settings_.firstExtraMs : 0);
    show();
}

// Highlights `index` (in automatic scanning) and times it from `from`.
void Scanner::startRound(int index, std::int64_t from) {
    rounds_ = 0;
    resting_ = false;
    index_ = index;
    stepAt_.reset();
    if (automatic() && index_ >= 0 && !groups().isEmpty())
        stepAt_ = from + settings_.intervalMs + settings_.firstExtraMs;
    show();
}

// The top level, from its first row or item, or with `row` highlighted.
void Scanner::startTop(std::optional<int> row, std::int64_t now) {
    inRow_ = false;
    row_ = -1;
    const bool firstShows = automatic() && !groups().isEmpty();
    startRound(row.value_or(firstShows ? 0 : -1), now);
}

void Scanner::finishChoice(std::int64_t now) {
    choicePending_ = false;
    rows_ = hooks_.rows();
    const bool sameRowThere = rowAfterChoice_ && *rowAfterChoice_ < rows_.size() && !pageChanged_;
    startTop(sameRowThere ? rowAfterChoice_ : std::nullopt, now);
}

void Scanner::update() {
    if (!isOn())
        return;
    const std::int64_t now = clock_.monotonicMs();
    for (const Switch which : {Switch::Advance, Switch::Select})
        if (const auto gesture = timing(which).due(now))
            handle(which, *gesture, now);
    if (choicePending_ && (!ignoreUntil_ || now >= *ignoreUntil_) && !hooks_.actionTextRunning())
        finishChoice(now);
    while (stepAt_ && now >= *stepAt_)
        advance(*stepAt_);
    emit scheduleChanged();
}

std::optional<std::int64_t> Scanner::nextWakeMs() const {
    std::optional<std::int64_t> wake = stepAt_;
    const auto earliest = [&wake](std::optional<std::int64_t> moment) {
        if (moment && (!wake || *moment < *wake))
            wake = moment;
    };
    earliest(advanceTiming_.nextDueMs());
    earliest(selectTiming_.nextDueMs());
    if (choicePending_ && ignoreUntil_ && *ignoreUntil_ > clock_.monotonicMs())
        earliest(ignoreUntil_);
    return wake;
}

void Scanner::show() {
    const QList<ScanRow> all = groups();
    QList<int16_t> areas;
    QStringList labels;
    if (index_ >= 0 && index_ < all.size())
        for (const ScanItem& item : all[index_]) {
            areas.append(item.area);
            if (const QString label = hooks_.label(item.area); !label.isEmpty())
                labels.append(label);
        }
    emit highlightChanged(areas);
    if (settings_.speak && !labels.isEmpty())
        emit speakRequested(labels.join(QStringLiteral(", ")));
}

} // namespace mervak
