#pragma once

#include "platform/PointerOutput.h"
#include "platform/WindowSystem.h"

#include <QList>
#include <QString>

namespace mervak {

// One thing a mouse sub-command does: a pointer event, or the wait between the
// press and the release of a single left click.
struct MouseAction {
    enum class Kind { Event, ClickWait };
    Kind kind = Kind::Event;
    unsigned flags = 0; // PointerFlag bits, always with Absolute
    int x = 0;          // 0..65535 across the screen
    int y = 0;
    friend bool operator==(const MouseAction&, const MouseAction&) = default;
};

// The argument of {|MOUSE ...}: sub-command words ("A", "R", "E", "D" with a
// step, 5 pixels when 0 or missing; "M", "PE", "PD" with x y measured from the
// target window's top-left corner, 0,0 when it is gone; "CE", "CD", "2CE",
// "2CD", "AE", "AD"), compared exactly. An unknown word does nothing. Numbers
// are read with Val and rounded half to even into 16 bits; a number or position
// out of range throws Overflow16, ending the command.
class MouseCommand {
public:
    // Reads the pointer's present position, where the first word starts from.
    MouseCommand(const QString& argument, PointerOutput& pointer, WindowSystem& windows,
                 WindowId target);

    bool atEnd() const { return remaining_.isEmpty(); }

    // The actions of the next word. Positions are read when it is called, so
    // call it only once the actions of the word before have been performed.
    QList<MouseAction> next();

    // Pixels to the absolute 0..65535 scale, rounded half to even.
    static int toAbsolute(int pixel, int screenPixels);

    // How long the single left click holds the button, from the seconds since
    // midnight when the wait begins: until the clock passes the start rounded
    // (half to even) to whole seconds by more than 10 ms, so 0 to 511 ms.
    static int clickWaitMs(double secondsSinceMidnight);

private:
    QString takeWord();
    int takeNumber();
    bool moveBy(const QString& word);
    void moveToTargetPoint();
    QList<MouseAction> perform(const QString& word);
    MouseAction event(unsigned flags, int x, int y) const;

    QString remaining_;
    PointerOutput& pointer_;
    WindowSystem& windows_;
    WindowId target_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace mervak
