#include "platform/x11/X11Keyboard.h"

#include "platform/x11/X11Connection.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <algorithm>

namespace mervak {

namespace {

unsigned maskOf(const Modifiers& modifiers) {
    return (modifiers.shift ? ShiftMask : 0) | (modifiers.control ? ControlMask : 0) |
           (modifiers.alt ? Mod1Mask : 0);
}

constexpr const char* kModifierNames[] = {"Shift", "Lock", "Control", "Alt",
                                          "Mod2",  "Mod3", "Mod4",    "Mod5"};

} // namespace

X11Keyboard::X11Keyboard(X11Connection& connection) : connection_(connection) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, [this] { pump(); });
    if (connection_.isOpen()) {
        watchKeyboard();
        readKeyMap();
    }
}

X11Keyboard::~X11Keyboard() {
    clearSpareKeycodes();
}

void X11Keyboard::setKeyDelayMs(int milliseconds) {
    keyDelayMs_ = std::max(0, milliseconds);
}

std::optional<TypingError> X11Keyboard::type(const KeyStrokes& strokes) {
    if (std::optional<TypingError> error = notReady()) {
        return error;
    }
    refreshKeyMap();
    if (std::optional<TypingError> error = notReady()) {
        return error;
    }
    for (const KeyStroke& stroke : strokes) {
        if (std::optional<TypingError> error = problemWith(stroke)) {
            return error;
        }
    }
    for (const KeyStroke& stroke : strokes) {
        queue_.push_back({stroke, {}});
    }
    pump();
    return std::nullopt;
}

void X11Keyboard::restoreLayout(std::function<void()> done) {
    flush([this, done = std::move(done)] { clearSpareKeycodesWhenSafe(done); });
}

// Keys typed meanwhile, even on the places about to be cleared, put the clearing off
// until the target can have decoded them too.
void X11Keyboard::clearSpareKeycodesWhenSafe(const std::function<void()>& done) {
    Clock::time_point safe = Clock::now();
    for (const Clock::time_point sent : spareKeySentAt_) {
        safe = std::max(safe, sent + std::chrono::milliseconds(kEvictSettleMs));
    }
    if (!queue_.empty()) {
        safe = std::max(safe, Clock::now() + std::chrono::milliseconds(kEvictSettleMs));
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(safe - Clock::now());
    if (left.count() > 0) {
        QTimer::singleShot(static_cast<int>(left.count()), &timer_,
                           [this, done] { clearSpareKeycodesWhenSafe(done); });
        return;
    }
    clearSpareKeycodes();
    done();
}

void X11Keyboard::flush(std::function<void()> done) {
    if (!done) {
        done = [] {};
    }
    queue_.push_back({KeyStroke{}, std::move(done)});
    if (!connection_.isOpen() || !keyMap_) {
        abandonQueue();
        return;
    }
    pump();
}

std::optional<TypingError> X11Keyboard::notReady() const {
    using Reason = TypingError::Reason;
    switch (connection_.state()) {
    case X11Connection::State::NoDisplayNamed:
        return TypingError{Reason::NoDisplayNamed, {}, {}};
    case X11Connection::State::NotOpened:
        return TypingError{Reason::DisplayNotOpened, {}, connection_.displayName()};
    case X11Connection::State::Lost:
        return TypingError{Reason::DisplayLost, {}, {}};
    case X11Connection::State::Open:
        break;
    }
    if (!keyMap_) {
        return TypingError{Reason::NoKeyboardMap, {}, {}}; // the server has no XKB
    }
    return std::nullopt;
}

// Takes note of keymap changes made by others (a new layout) and of a group switch.
void X11Keyboard::refreshKeyMap() {
    Display* display = connection_.display();
    while (XPending(display) > 0) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == MappingNotify) {
            XRefreshKeyboardMapping(&event.xmapping);
        }
        if (event.type != xkbEventBase_) {
            continue;
        }
        const XkbEvent& notice = reinterpret_cast<const XkbEvent&>(event);
        // Our changes touch keysyms (and the server recomputes the keys' actions).
        constexpr unsigned ours = XkbKeySymsMask | XkbKeyActionsMask;
        const bool own = notice.any.xkb_type == XkbMapNotify && (notice.map.changed & ~ours) == 0 &&
                         isOwnChange(notice.map.first_key_sym, notice.map.num_key_syms);
        keyMapStale_ = keyMapStale_ || !own;
    }
    if (keyMapStale_) {
        readKeyMap();
    }
}

// Asks for the keyboard's changes: its map, a new keyboard, a switch of group.
void X11Keyboard::watchKeyboard() {
    Display* display = connection_.display();
    int opcode = 0;
    int errorBase = 0;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    if (!XkbQueryExtension(display, &opcode, &xkbEventBase_, &errorBase, &major, &minor)) {
        xkbEventBase_ = -1;
        return;
    }
    const unsigned long events = XkbNewKeyboardNotifyMask | XkbMapNotifyMask;
    XkbSelectEvents(display, XkbUseCoreKbd, events, events);
    XkbSelectEventDetails(display, XkbUseCoreKbd, XkbStateNotify, XkbGroupStateMask,
                          XkbGroupStateMask);
}

void X11Keyboard::readKeyMap() {
    QHash<KeyCode8, QList<KeySymbol>> own;
    for (KeyCode8 keycode : spares_.usedKeycodes()) {
        own.insert(keycode, {spares_.symbolAt({keycode, 0}), spares_.symbolAt({keycode, 1})});
    }
    std::optional<X11KeyMap> fresh = X11KeyMap::read(connection_.display(), own);
    if (!fresh) {
        return; // the connection is gone or has no XKB: keep what we had
    }
    keyMap_ = std::move(fresh);
    keyMapStale_ = false;
    spares_.setKeycodes(keyMap_->spareKeycodes());
    for (KeyCode8 keycode : spares_.usedKeycodes()) {
        if (!keyMap_->intactOwnKeycodes().contains(keycode)) {
            spares_.release(keycode);
        }
    }
}

KeySymbol X11Keyboard::symbolOf(const KeyStroke& stroke) const {
    return stroke.key == Key::Character ? keySymbolForCharacter(stroke.character)
                                        : keySymbolForKey(stroke.key);
}

// Where the stroke's key sits now, on the keyboard map or on a spare keycode.
std::optional<KeyPlace> X11Keyboard::placeOf(const KeyStroke& stroke) const {
    const KeySymbol symbol = symbolOf(stroke);
    const bool printable =
        stroke.key == Key::Character && stroke.character >= 0x20 && stroke.character != 0x7f;
    std::optional<KeyPlace> place =
        printable ? keyMap_->findCharacter(stroke.character) : keyMap_->findSymbol(symbol);
    if (!place && printable) {
        place = keyMap_->findSymbol(symbol);
    }
    const std::optional<SpareKeycodes::Place> spare = spares_.find(symbol);
    if (!place && spare) {
        place = KeyPlace{spare->keycode, spare->level == 1 ? unsigned(ShiftMask) : 0u};
    }
    return place;
}

// Why the stroke cannot be typed with this keyboard map; nothing when it can.
std::optional<TypingError> X11Keyboard::problemWith(const KeyStroke& stroke) const {
    if (symbolOf(stroke) == kNoSymbol) {
        return TypingError{TypingError::Reason::KeyNotTypeable, stroke, {}};
    }
    const std::optional<KeyPlace> place = placeOf(stroke);
    if (!place && spares_.capacity() == 0) {
        return TypingError{TypingError::Reason::NoFreeKeycode, stroke, {}};
    }
    // A keysym still to be mapped may land on a Shift level.
    const unsigned mask = maskOf(stroke.modifiers) | (place ? place->modifiers : ShiftMask);
    for (int bit = 0; bit < 8; ++bit) {
        if ((mask & (1u << bit)) != 0 && keyMap_->keycodeForModifier(bit) == 0) {
            return TypingError{TypingError::Reason::NoModifierKey, stroke,
                               QLatin1String(kModifierNames[bit])};
        }
    }
    return std::nullopt;
}

void X11Keyboard::pump() {
    while (!queue_.empty()) {
        if (!connection_.isOpen()) {
            abandonQueue();
            return;
        }
        if (Clock::now() < readyAt_) {
            waitUntil(readyAt_);
            break;
        }
        Pending& next = queue_.front();
        if (next.done) {
            XSync(connection_.display(), False);
            QTimer::singleShot(kFlushSettleMs, next.done);
            queue_.pop_front();
            continue;
        }
        const std::optional<KeyPlace> place = placeOf(next.stroke);
        if (!place) {
            if (!mapSpareKeys()) {
                break;
            }
            continue;
        }
        send(next.stroke, *place);
        queue_.pop_front();
        if (keyDelayMs_ > 0) {
            readyAt_ = lastKeyAt_ + std::chrono::milliseconds(keyDelayMs_);
        }
    }
    if (connection_.isOpen()) {
        XFlush(connection_.display());
    }
}

// Maps the keysyms missing from the map for the strokes ahead, as many as the spare
// keycodes hold, in one change. False when it has to wait first.
bool X11Keyboard::mapSpareKeys() {
    refreshKeyMap();
    QList<KeySymbol> missing;
    QSet<KeySymbol> keep;
    for (const Pending& pending : queue_) {
        const KeySymbol symbol = pending.done ? kNoSymbol : symbolOf(pending.stroke);
        if (spares_.find(symbol)) {
            keep.insert(symbol);
        } else if (!pending.done && !placeOf(pending.stroke) && !missing.contains(symbol)) {
            if (missing.size() + keep.size() >= spares_.capacity()) {
                break;
            }
            missing.append(symbol);
        }
    }
    if (missing.isEmpty()) {
        return true; // a fresh keyboard map holds them now
    }
    SpareKeycodes planned = spares_;
    std::optional<QList<SpareKeycodes::Change>> changes = planned.assign(missing, keep);
    if (!changes) {
        // The plain places ran short: map what the next stroke needs alone.
        planned = spares_;
        changes = planned.assign({missing.front()}, {});
    }
    if (!changes) {
        queue_.pop_front(); // cannot happen after problemWith(); never loop on it
        return true;
    }
    const Clock::time_point safe = rewritableAt(*changes);
    if (Clock::now() < safe) {
        waitUntil(safe);
        return false;
    }
    for (const SpareKeycodes::Change& change : *changes) {
        spareKeySentAt_.remove(spares_.symbolAt(change.place));
    }
    spares_ = planned;
    QList<KeyCode8> keycodes;
    for (const SpareKeycodes::Change& change : *changes) {
        if (!keycodes.contains(change.place.keycode)) {
            keycodes.append(change.place.keycode);
        }
    }
    writeSpareKeycodes(keycodes);
    return true;
}

// When the target can have decoded every key sent on the places `changes` rewrite.
X11Keyboard::Clock::time_point
X11Keyboard::rewritableAt(const QList<SpareKeycodes::Change>& changes) const {
    Clock::time_point at{};
    for (const SpareKeycodes::Change& change : changes) {
        const auto sent = spareKeySentAt_.constFind(spares_.symbolAt(change.place));
        if (sent != spareKeySentAt_.constEnd()) {
            at = std::max(at, *sent + std::chrono::milliseconds(kEvictSettleMs));
        }
    }
    return at;
}

// Writes what the spare keycodes hold to the server with one XKB request, so clients
// see one keymap change: keys between them go along unchanged, types and all.
void X11Keyboard::writeSpareKeycodes(const QList<KeyCode8>& keycodes) {
    if (keycodes.isEmpty()) {
        return;
    }
    Display* display = connection_.display();
    XkbDescPtr xkb = XkbGetMap(display, XkbKeyTypesMask | XkbKeySymsMask, XkbUseCoreKbd);
    if (xkb == nullptr) {
        return;
    }
    for (KeyCode8 keycode : keycodes) {
        const KeySymbol plain = spares_.symbolAt({keycode, 0});
        const KeySymbol shifted = spares_.symbolAt({keycode, 1});
        int types[XkbNumKbdGroups] = {XkbTwoLevelIndex};
        const int groups = plain == kNoSymbol && shifted == kNoSymbol ? 0 : 1;
        if (XkbChangeTypesOfKey(xkb, keycode, groups, XkbGroup1Mask, types, nullptr) == Success &&
            groups == 1) {
            KeySym* symbols = XkbKeySymsPtr(xkb, keycode);
            symbols[0] = plain;
            symbols[1] = shifted;
        }
    }
    const auto [first, last] = std::minmax_element(keycodes.begin(), keycodes.end());
    XkbMapChangesRec changes{};
    changes.changed = XkbKeySymsMask;
    changes.first_key_sym = *first;
    changes.num_key_syms = *last - *first + 1;
    XkbChangeMap(display, xkb, &changes);
    ownChanges_.append({*first, *last - *first + 1});
    if (ownChanges_.size() > kOwnChangesKept) {
        ownChanges_.removeFirst();
    }
    ++keymapChanges_;
    XkbFreeKeyboard(xkb, 0, True);
    XFlush(display);
}

// Whether a map notice for keycodes first..first+count-1 reports one of our recent
// changes. Each change is reported once for every device that shares the map.
bool X11Keyboard::isOwnChange(int first, int count) const {
    return std::any_of(ownChanges_.begin(), ownChanges_.end(), [&](const auto& change) {
        return first >= change.first && first + count <= change.first + change.second;
    });
}

void X11Keyboard::send(const KeyStroke& stroke, KeyPlace place) {
    Display* display = connection_.display();
    const unsigned mask = maskOf(stroke.modifiers) | place.modifiers;
    QList<KeyCode8> held;
    for (int bit = 0; bit < 8; ++bit) {
        const KeyCode8 keycode = keyMap_->keycodeForModifier(bit);
        if ((mask & (1u << bit)) != 0 && !held.contains(keycode)) {
            held.append(keycode);
            XTestFakeKeyEvent(display, keycode, True, CurrentTime);
        }
    }
    XTestFakeKeyEvent(display, place.keycode, True, CurrentTime);
    XTestFakeKeyEvent(display, place.keycode, False, CurrentTime);
    for (auto keycode = held.rbegin(); keycode != held.rend(); ++keycode) {
        XTestFakeKeyEvent(display, *keycode, False, CurrentTime);
    }
    const KeySymbol symbol = symbolOf(stroke);
    lastKeyAt_ = Clock::now();
    if (spares_.find(symbol)) {
        spares_.touch(symbol);
        spareKeySentAt_.insert(symbol, lastKeyAt_);
    }
}

// The display is gone: the keys are lost, but whoever waits for them must go on.
void X11Keyboard::abandonQueue() {
    for (Pending& pending : queue_) {
        if (pending.done) {
            QTimer::singleShot(0, pending.done);
        }
    }
    queue_.clear();
}

void X11Keyboard::waitUntil(Clock::time_point moment) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - Clock::now());
    timer_.start(static_cast<int>(std::max<std::int64_t>(0, left.count())));
}

// Leaves the keyboard map as it was before this keyboard borrowed keycodes.
void X11Keyboard::clearSpareKeycodes() {
    if (!connection_.isOpen() || !keyMap_ || spares_.usedKeycodes().isEmpty()) {
        return;
    }
    const QList<KeyCode8> used = spares_.usedKeycodes();
    spares_.clear();
    spareKeySentAt_.clear();
    writeSpareKeycodes(used);
    XSync(connection_.display(), False);
}

} // namespace mervak
