#include "action/MouseCommand.h"

#include "action/CommandBlock.h"
#include "platform/Checked16.h"
#include "platform/NumericText.h"

#include <cmath>

namespace mervak {

namespace {

constexpr int kDefaultStep = 5;

using namespace PointerFlag;

int checkedSum(int a, int b) {
    return roundToInt32(static_cast<double>(a) + b);
}

} // namespace

MouseCommand::MouseCommand(const QString& argument, PointerOutput& pointer, WindowSystem& windows,
                           WindowId target)
    : remaining_(CommandBlock::trimBlanks(argument)), pointer_(pointer), windows_(windows),
      target_(target) {
    const QPoint position = pointer_.position();
    x_ = position.x();
    y_ = position.y();
}

QString MouseCommand::takeWord() {
    const qsizetype blank = remaining_.indexOf(u' ');
    const QString word = blank < 0 ? remaining_ : remaining_.left(blank);
    remaining_ = blank < 0 ? QString() : CommandBlock::trimBlanks(remaining_.mid(blank));
    return word;
}

int MouseCommand::takeNumber() {
    return roundToInt16(Val(takeWord()));
}

QList<MouseAction> MouseCommand::next() {
    QString word = takeWord();
    if (moveBy(word))
        word = QStringLiteral("M");
    else if (word == u"M" || word == u"PE" || word == u"PD")
        moveToTargetPoint();
    return perform(word);
}

// "A", "R", "E", "D": a relative move, performed as "M".
bool MouseCommand::moveBy(const QString& word) {
    if (word != u"A" && word != u"R" && word != u"E" && word != u"D")
        return false;
    int step = takeNumber();
    if (step == 0)
        step = kDefaultStep;
    if (word == u"A")
        y_ = checkedSum(y_, -step);
    else if (word == u"R")
        y_ = checkedSum(y_, step);
    else if (word == u"E")
        x_ = checkedSum(x_, -step);
    else
        x_ = checkedSum(x_, step);
    return true;
}

void MouseCommand::moveToTargetPoint() {
    const WindowRect corner = windows_.rect(target_).value_or(WindowRect{});
    x_ = checkedSum(corner.left, takeNumber());
    y_ = checkedSum(corner.top, takeNumber());
}

MouseAction MouseCommand::event(unsigned flags, int x, int y) const {
    const QSize screen = windows_.screenSize();
    return {MouseAction::Kind::Event, flags | Absolute, toAbsolute(x, screen.width()),
            toAbsolute(y, screen.height())};
}

QList<MouseAction> MouseCommand::perform(const QString& word) {
    if (word == u"M")
        return {event(Move, x_, y_)};
    if (word == u"CE")
        return {event(LeftDown, x_, y_), {MouseAction::Kind::ClickWait}, event(LeftUp, x_, y_)};
    if (word == u"2CE")
        return {event(LeftDown, x_, y_), event(LeftUp, x_, y_), event(LeftDown, x_, y_),
                event(LeftUp, x_, y_)};
    if (word == u"CD")
        return {event(RightDown, x_, y_), event(RightUp, x_, y_)};
    if (word == u"2CD")
        return {event(RightDown, x_, y_), event(RightUp, x_, y_), event(RightDown, x_, y_),
                event(RightUp, x_, y_)};
    if (word == u"AE")
        return {event(LeftUp, x_, y_)};
    if (word == u"AD")
        return {event(RightUp, x_, y_)};
    if (word == u"PE" || word == u"PD") {
        const unsigned down = word == u"PE" ? LeftDown : RightDown;
        const unsigned up = word == u"PE" ? LeftUp : RightUp;
        const QPoint present = pointer_.position();
        return {event(Move | down, present.x(), present.y()), event(Move | down, x_, y_),
                event(up, x_, y_)};
    }
    return {};
}

int MouseCommand::toAbsolute(int pixel, int screenPixels) {
    return roundToInt32(static_cast<double>(pixel) * 65535.0 / screenPixels);
}

int MouseCommand::clickWaitMs(double secondsSinceMidnight) {
    const auto nowMs = static_cast<long long>(std::llround(secondsSinceMidnight * 1000.0));
    const auto deadlineMs =
        static_cast<long long>(std::nearbyint(secondsSinceMidnight)) * 1000 + 10;
    return nowMs > deadlineMs ? 0 : static_cast<int>(deadlineMs + 1 - nowMs);
}

} // namespace mervak
