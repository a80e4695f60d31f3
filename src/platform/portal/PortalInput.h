#pragma once

#include "platform/KeyboardOutput.h"
#include "platform/PointerOutput.h"

#include <deque>
#include <optional>

namespace mervak {

class PortalSession;

// Types through the remote desktop portal, by keysym: the desktop turns each
// into a key of the user's layout. Keys typed while the session is starting
// (while the dialog waits for the teacher) wait with it, and are dropped when
// the desktop says no.
class PortalKeyboard : public KeyboardOutput {
public:
    // The session must outlive the keyboard.
    explicit PortalKeyboard(PortalSession& session);

    std::optional<TypingError> type(const KeyStrokes& strokes) override;
    // The portal passes the keys on in order, but tells nothing of their arrival.
    void flush(std::function<void()> done) override;

    // The keysyms typing `stroke` presses, modifiers first; empty when no keysym
    // types it.
    static QList<std::uint32_t> keysymsOf(const KeyStroke& stroke);

private:
    void sendWaiting();
    void send(const KeyStroke& stroke);

    PortalSession& session_;
    KeyStrokes waiting_;
    std::deque<std::function<void()>> flushes_;
};

// Moves and clicks through the portal, over the monitor the teacher shared.
// Wayland tells no client where the pointer is: position() answers where this
// pointer last put it, the middle of the screen before.
class PortalPointer : public PointerOutput {
public:
    explicit PortalPointer(PortalSession& session);

    QPoint position() override;
    void send(unsigned flags, int absoluteX, int absoluteY) override;

private:
    PortalSession& session_;
    std::optional<QPoint> position_;
};

} // namespace mervak
