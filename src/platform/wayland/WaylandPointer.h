#pragma once

#include "platform/PointerOutput.h"

#include <chrono>
#include <optional>

struct zwlr_virtual_pointer_manager_v1;
struct zwlr_virtual_pointer_v1;

namespace mervak {

class WaylandConnection;

// Moves and clicks through wlroots' virtual pointer, in absolute coordinates
// across all the outputs. Wayland tells no client where the pointer is, so
// position() answers where this pointer last put it (the middle of the screen
// before that). The pointer is created at once, so that the seat's new pointer
// has reached the clients by the first click.
class WaylandPointer : public PointerOutput {
public:
    // The connection must outlive the pointer.
    explicit WaylandPointer(WaylandConnection& connection);
    ~WaylandPointer() override;
    WaylandPointer(const WaylandPointer&) = delete;
    WaylandPointer& operator=(const WaylandPointer&) = delete;

    bool available() const { return pointer_ != nullptr; }

    QPoint position() override;
    void send(unsigned flags, int absoluteX, int absoluteY) override;

private:
    std::uint32_t now() const;

    WaylandConnection& connection_;
    zwlr_virtual_pointer_manager_v1* manager_ = nullptr;
    zwlr_virtual_pointer_v1* pointer_ = nullptr;
    std::optional<QPoint> position_;
    std::chrono::steady_clock::time_point startedAt_ = std::chrono::steady_clock::now();
};

} // namespace mervak
