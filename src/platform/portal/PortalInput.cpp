#include "platform/portal/PortalInput.h"

#include "platform/portal/PortalSession.h"

#include <QTimer>
#include <algorithm>
#include <cmath>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

namespace mervak {

namespace {

constexpr int kFlushSettleMs = 20;

struct NamedKeysym {
    Key key;
    std::uint32_t symbol;
};

constexpr NamedKeysym kNamed[] = {
    {Key::Enter, XKB_KEY_Return},
    {Key::Tab, XKB_KEY_Tab},
    {Key::Backspace, XKB_KEY_BackSpace},
    {Key::Escape, XKB_KEY_Escape},
    {Key::Delete, XKB_KEY_Delete},
    {Key::Insert, XKB_KEY_Insert},
    {Key::Home, XKB_KEY_Home},
    {Key::End, XKB_KEY_End},
    {Key::PageUp, XKB_KEY_Prior},
    {Key::PageDown, XKB_KEY_Next},
    {Key::Left, XKB_KEY_Left},
    {Key::Right, XKB_KEY_Right},
    {Key::Up, XKB_KEY_Up},
    {Key::Down, XKB_KEY_Down},
    {Key::CapsLock, XKB_KEY_Caps_Lock},
    {Key::NumLock, XKB_KEY_Num_Lock},
    {Key::ScrollLock, XKB_KEY_Scroll_Lock},
    {Key::PrintScreen, XKB_KEY_Print},
    {Key::Break, XKB_KEY_Break},
    {Key::Help, XKB_KEY_Help},
    {Key::Add, XKB_KEY_KP_Add},
    {Key::Subtract, XKB_KEY_KP_Subtract},
    {Key::Multiply, XKB_KEY_KP_Multiply},
    {Key::Divide, XKB_KEY_KP_Divide},
};

std::uint32_t symbolOf(const KeyStroke& stroke) {
    if (stroke.key >= Key::F1 && stroke.key <= Key::F16)
        return XKB_KEY_F1 + (static_cast<int>(stroke.key) - static_cast<int>(Key::F1));
    if (stroke.key != Key::Character) {
        const auto* named = std::find_if(std::begin(kNamed), std::end(kNamed),
                                         [&](const NamedKeysym& n) { return n.key == stroke.key; });
        return named == std::end(kNamed) ? XKB_KEY_NoSymbol : named->symbol;
    }
    switch (stroke.character) {
    case U'\n':
    case U'\r':
        return XKB_KEY_Return;
    case U'\t':
        return XKB_KEY_Tab;
    case U'\b':
        return XKB_KEY_BackSpace;
    case 0x1b:
        return XKB_KEY_Escape;
    case 0x7f:
        return XKB_KEY_Delete;
    default:
        break;
    }
    const char32_t c = stroke.character;
    const bool control = c < 0x20 || (c >= 0x80 && c < 0xa0);
    if (control || (c >= 0xd800 && c <= 0xdfff) || c > 0x10ffff)
        return XKB_KEY_NoSymbol;
    return xkb_utf32_to_keysym(c);
}

} // namespace

PortalKeyboard::PortalKeyboard(PortalSession& session) : session_(session) {
    QObject::connect(&session_, &PortalSession::finished, [this] { sendWaiting(); });
}

QList<std::uint32_t> PortalKeyboard::keysymsOf(const KeyStroke& stroke) {
    const std::uint32_t symbol = symbolOf(stroke);
    if (symbol == XKB_KEY_NoSymbol)
        return {};
    QList<std::uint32_t> symbols;
    if (stroke.modifiers.control)
        symbols.append(XKB_KEY_Control_L);
    if (stroke.modifiers.alt)
        symbols.append(XKB_KEY_Alt_L);
    if (stroke.modifiers.shift)
        symbols.append(XKB_KEY_Shift_L);
    symbols.append(symbol);
    return symbols;
}

std::optional<TypingError> PortalKeyboard::type(const KeyStrokes& strokes) {
    using State = PortalSession::State;
    if (session_.state() == State::Refused || session_.state() == State::Failed)
        return TypingError{TypingError::Reason::RemoteControlRefused, {}, {}};
    for (const KeyStroke& stroke : strokes)
        if (keysymsOf(stroke).isEmpty())
            return TypingError{TypingError::Reason::KeyNotTypeable, stroke, {}};
    waiting_ += strokes;
    sendWaiting();
    return std::nullopt;
}

void PortalKeyboard::flush(std::function<void()> done) {
    flushes_.push_back(done ? std::move(done) : [] {});
    sendWaiting();
}

void PortalKeyboard::sendWaiting() {
    if (session_.state() == PortalSession::State::Starting)
        return;
    if (session_.state() == PortalSession::State::Started)
        for (const KeyStroke& stroke : std::as_const(waiting_))
            send(stroke);
    waiting_.clear();
    while (!flushes_.empty()) {
        QTimer::singleShot(kFlushSettleMs, flushes_.front());
        flushes_.pop_front();
    }
}

void PortalKeyboard::send(const KeyStroke& stroke) {
    const QList<std::uint32_t> symbols = keysymsOf(stroke);
    for (const std::uint32_t symbol : symbols)
        session_.keysym(symbol, true);
    for (auto symbol = symbols.rbegin(); symbol != symbols.rend(); ++symbol)
        session_.keysym(*symbol, false);
}

PortalPointer::PortalPointer(PortalSession& session) : session_(session) {}

QPoint PortalPointer::position() {
    if (position_)
        return *position_;
    const QSize screen = session_.streamSize();
    return {screen.width() / 2, screen.height() / 2};
}

void PortalPointer::send(unsigned flags, int absoluteX, int absoluteY) {
    if ((flags & PointerFlag::Move) != 0) {
        const QSize screen = session_.streamSize();
        const bool absolute = (flags & PointerFlag::Absolute) != 0;
        const auto pixel = [](int value, int extent) {
            return static_cast<int>(std::nearbyint(static_cast<double>(value) * extent / 65535.0));
        };
        const QPoint to =
            absolute ? QPoint(pixel(absoluteX, screen.width()), pixel(absoluteY, screen.height()))
                     : position() + QPoint(absoluteX, absoluteY);
        session_.pointerTo(to.x(), to.y());
        position_ = to;
    }
    struct ButtonEvent {
        unsigned flag;
        std::uint32_t button;
        bool pressed;
    };
    constexpr ButtonEvent buttons[] = {{PointerFlag::LeftDown, BTN_LEFT, true},
                                       {PointerFlag::LeftUp, BTN_LEFT, false},
                                       {PointerFlag::RightDown, BTN_RIGHT, true},
                                       {PointerFlag::RightUp, BTN_RIGHT, false}};
    for (const ButtonEvent& event : buttons)
        if ((flags & event.flag) != 0)
            session_.button(event.button, event.pressed);
}

} // namespace mervak
