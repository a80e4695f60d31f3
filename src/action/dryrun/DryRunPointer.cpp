#include "action/dryrun/DryRunPointer.h"

#include <array>
#include <cmath>

namespace mervak {

namespace {

struct Action {
    unsigned flag;
    const char* name;
};

constexpr std::array kActions = {
    Action{PointerFlag::Move, "move"},        Action{PointerFlag::LeftDown, "left-down"},
    Action{PointerFlag::LeftUp, "left-up"},   Action{PointerFlag::RightDown, "right-down"},
    Action{PointerFlag::RightUp, "right-up"},
};

int pixelOf(int absolute, int extent) {
    return static_cast<int>(std::lround(static_cast<double>(absolute) * extent / 65535.0));
}

} // namespace

DryRunPointer::DryRunPointer(DryRunLog& log, QSize screen)
    : log_(log), screen_(screen), position_(screen.width() / 2, screen.height() / 2) {}

void DryRunPointer::send(unsigned flags, int absoluteX, int absoluteY) {
    const QPoint at(pixelOf(absoluteX, screen_.width()), pixelOf(absoluteY, screen_.height()));
    QStringList actions;
    for (const Action& action : kActions)
        if (flags & action.flag)
            actions.append(QLatin1String(action.name));
    if (flags & PointerFlag::Move)
        position_ = at;
    log_.write(DryRunLine("mouse")
                   .add("actions", actions)
                   .add("x", at.x())
                   .add("y", at.y())
                   .add("absolute_x", absoluteX)
                   .add("absolute_y", absoluteY));
}

} // namespace mervak
