#include "platform/wayland/WaylandPointer.h"

#include "platform/wayland/WaylandConnection.h"
#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

#include <algorithm>
#include <cmath>
#include <linux/input-event-codes.h>
#include <wayland-client.h>

namespace mervak {

namespace {

constexpr std::uint32_t kAbsoluteExtent = 65535;

// As X11's absolute motion reads it, so both backends click the same pixel.
int pixelOf(int absolute, int extent) {
    const double pixel = std::nearbyint(static_cast<double>(absolute) * extent / kAbsoluteExtent);
    return static_cast<int>(std::clamp(pixel, 0.0, static_cast<double>(extent - 1)));
}

} // namespace

WaylandPointer::WaylandPointer(WaylandConnection& connection) : connection_(connection) {
    manager_ = static_cast<zwlr_virtual_pointer_manager_v1*>(
        connection_.bind(&zwlr_virtual_pointer_manager_v1_interface, 1));
    if (manager_ == nullptr)
        return;
    pointer_ = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager_, connection_.seat());
    connection_.flush();
}

WaylandPointer::~WaylandPointer() {
    if (pointer_ != nullptr && connection_.isOpen())
        zwlr_virtual_pointer_v1_destroy(pointer_);
    if (manager_ != nullptr && connection_.isOpen())
        zwlr_virtual_pointer_manager_v1_destroy(manager_);
    connection_.flush();
}

QPoint WaylandPointer::position() {
    if (position_)
        return *position_;
    const QSize screen = connection_.screenSize();
    return {screen.width() / 2, screen.height() / 2};
}

void WaylandPointer::send(unsigned flags, int absoluteX, int absoluteY) {
    if (pointer_ == nullptr || !connection_.isOpen())
        return;
    const std::uint32_t time = now();
    if ((flags & PointerFlag::Move) != 0) {
        const QSize screen = connection_.screenSize();
        const QPoint from = position();
        const bool absolute = (flags & PointerFlag::Absolute) != 0;
        const QPoint to = absolute ? QPoint(pixelOf(absoluteX, screen.width()),
                                            pixelOf(absoluteY, screen.height()))
                                   : from + QPoint(absoluteX, absoluteY);
        // Absolute motion lands on the pixel whose left edge is at x of extent:
        // aim at the pixel's middle so rounding never slips to its neighbour.
        const auto scaled = [](int pixel, int extent) {
            return static_cast<std::uint32_t>((2LL * pixel + 1) * kAbsoluteExtent / (2LL * extent));
        };
        if (!screen.isEmpty())
            zwlr_virtual_pointer_v1_motion_absolute(pointer_, time, scaled(to.x(), screen.width()),
                                                    scaled(to.y(), screen.height()),
                                                    kAbsoluteExtent, kAbsoluteExtent);
        position_ = to;
        zwlr_virtual_pointer_v1_frame(pointer_);
    }
    struct ButtonEvent {
        unsigned flag;
        std::uint32_t button;
        std::uint32_t state;
    };
    constexpr ButtonEvent buttons[] = {
        {PointerFlag::LeftDown, BTN_LEFT, WL_POINTER_BUTTON_STATE_PRESSED},
        {PointerFlag::LeftUp, BTN_LEFT, WL_POINTER_BUTTON_STATE_RELEASED},
        {PointerFlag::RightDown, BTN_RIGHT, WL_POINTER_BUTTON_STATE_PRESSED},
        {PointerFlag::RightUp, BTN_RIGHT, WL_POINTER_BUTTON_STATE_RELEASED}};
    for (const ButtonEvent& event : buttons) {
        if ((flags & event.flag) != 0) {
            zwlr_virtual_pointer_v1_button(pointer_, time, event.button, event.state);
            zwlr_virtual_pointer_v1_frame(pointer_);
        }
    }
    connection_.flush();
}

std::uint32_t WaylandPointer::now() const {
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - startedAt_);
    return static_cast<std::uint32_t>(elapsed.count());
}

} // namespace mervak
