#include "platform/x11/SpareKeycodes.h"

#include <algorithm>

namespace mervak {

namespace {

bool before(const SpareKeycodes::Place& a, const SpareKeycodes::Place& b) {
    return std::pair(a.keycode, a.level) < std::pair(b.keycode, b.level);
}

} // namespace

void SpareKeycodes::setKeycodes(const QList<KeyCode8>& keycodes) {
    QList<Slot> updated;
    for (KeyCode8 keycode : keycodes) {
        for (int level = 0; level < kLevels; ++level) {
            const Place place{keycode, level};
            auto kept = std::find_if(slots_.begin(), slots_.end(),
                                     [&place](const Slot& slot) { return slot.place == place; });
            updated.append(kept == slots_.end() ? Slot{place, kNoSymbol, 0} : *kept);
        }
    }
    std::sort(updated.begin(), updated.end(),
              [](const Slot& a, const Slot& b) { return before(a.place, b.place); });
    slots_ = updated;
}

QList<KeyCode8> SpareKeycodes::keycodes() const {
    QList<KeyCode8> result;
    for (const Slot& slot : slots_) {
        if (slot.place.level == 0) {
            result.append(slot.place.keycode);
        }
    }
    return result;
}

int SpareKeycodes::freeCount() const {
    return static_cast<int>(std::count_if(
        slots_.begin(), slots_.end(), [](const Slot& slot) { return slot.symbol == kNoSymbol; }));
}

int SpareKeycodes::freePlainCount() const {
    return static_cast<int>(std::count_if(slots_.begin(), slots_.end(), [](const Slot& slot) {
        return slot.symbol == kNoSymbol && slot.place.level == 0;
    }));
}

std::optional<SpareKeycodes::Place> SpareKeycodes::find(KeySymbol symbol) const {
    for (const Slot& slot : slots_) {
        if (slot.symbol == symbol && symbol != kNoSymbol) {
            return slot.place;
        }
    }
    return std::nullopt;
}

KeySymbol SpareKeycodes::symbolAt(Place place) const {
    for (const Slot& slot : slots_) {
        if (slot.place == place) {
            return slot.symbol;
        }
    }
    return kNoSymbol;
}

void SpareKeycodes::touch(KeySymbol symbol) {
    for (Slot& slot : slots_) {
        if (slot.symbol == symbol && symbol != kNoSymbol) {
            slot.lastUse = ++clock_;
        }
    }
}

std::optional<QList<SpareKeycodes::Change>> SpareKeycodes::assign(const QList<KeySymbol>& symbols,
                                                                  const QSet<KeySymbol>& keep) {
    QList<int> order;
    for (int i = 0; i < slots_.size(); ++i) {
        if (slots_[i].symbol == kNoSymbol || !keep.contains(slots_[i].symbol)) {
            order.append(i);
        }
    }
    // Free places first (they were never used, or were cleared), then the oldest.
    const auto age = [this](int i) {
        return slots_[i].symbol == kNoSymbol ? 0 : slots_[i].lastUse;
    };
    std::stable_sort(order.begin(), order.end(), [&age](int a, int b) { return age(a) < age(b); });
    // Keys that type no character take their places first, as they need plain ones.
    QList<KeySymbol> ordered = symbols;
    std::stable_partition(ordered.begin(), ordered.end(),
                          [](KeySymbol symbol) { return characterOfKeySymbol(symbol) == 0; });
    QList<int> chosen;
    for (KeySymbol symbol : ordered) {
        const bool plainOnly = characterOfKeySymbol(symbol) == 0;
        auto place = std::find_if(order.begin(), order.end(), [&](int i) {
            return !chosen.contains(i) && (!plainOnly || slots_[i].place.level == 0);
        });
        if (place == order.end()) {
            return std::nullopt;
        }
        chosen.append(*place);
    }
    QList<Change> changes;
    for (int i = 0; i < ordered.size(); ++i) {
        Slot& slot = slots_[chosen[i]];
        slot.symbol = ordered[i];
        slot.lastUse = ++clock_;
        changes.append({slot.place, slot.symbol});
    }
    std::sort(changes.begin(), changes.end(),
              [](const Change& a, const Change& b) { return before(a.place, b.place); });
    return changes;
}

QList<KeyCode8> SpareKeycodes::usedKeycodes() const {
    QList<KeyCode8> used;
    for (const Slot& slot : slots_) {
        if (slot.symbol != kNoSymbol && !used.contains(slot.place.keycode)) {
            used.append(slot.place.keycode);
        }
    }
    return used;
}

void SpareKeycodes::release(KeyCode8 keycode) {
    for (Slot& slot : slots_) {
        if (slot.place.keycode == keycode) {
            slot.symbol = kNoSymbol;
            slot.lastUse = 0;
        }
    }
}

void SpareKeycodes::clear() {
    for (Slot& slot : slots_) {
        slot.symbol = kNoSymbol;
        slot.lastUse = 0;
    }
}

} // namespace mervak
