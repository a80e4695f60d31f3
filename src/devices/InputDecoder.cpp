#include "devices/InputDecoder.h"

#include <algorithm>

namespace mervak {

namespace {

constexpr int kMaxContacts = 16;
constexpr int kCellWidth = 40;
constexpr int kFirstCellCentre = 20;

// Default cells by button number (index 0 unused).
constexpr DancePadCells kDefaultCells = {0, 4, 8, 2, 6, 1, 3, 7, 9, 5, 5, 0, 0, 2, 6, 8, 4};

PressPoint cellCentre(int cell) {
    const int column = (cell - 1) % 3;
    const int row = (cell - 1) / 3;
    return {int16_t(kFirstCellCentre + kCellWidth * column),
            int16_t(kSheetMax + 1 - kFirstCellCentre - kCellWidth * row)};
}

SheetFrame axesFrame(const InputCapabilities& capabilities, int xAxis, int yAxis) {
    const auto& x = capabilities.axes[xAxis];
    const auto& y = capabilities.axes[yAxis];
    if (!x || !y)
        return {};
    return {x->minimum, y->minimum, x->maximum, y->maximum, false, false};
}

bool isMultitouch(const InputCapabilities& capabilities) {
    return capabilities.hasAxis(ABS_MT_SLOT) && capabilities.hasAxis(ABS_MT_TRACKING_ID) &&
           capabilities.hasAxis(ABS_MT_POSITION_X) && capabilities.hasAxis(ABS_MT_POSITION_Y);
}

} // namespace

DancePadCells readDancePadCells(const PrivateProfile& file) {
    DancePadCells cells = kDefaultCells;
    for (int button = 1; button <= kDancePadButtons; ++button) {
        const long long cell = file.readInteger(
            QStringLiteral("DANCEPAD"), QStringLiteral("Boto%1").arg(button), cells[button]);
        cells[button] = cell >= 0 && cell <= 9 ? int8_t(cell) : 0;
    }
    return cells;
}

InputDecoder::InputDecoder(InputKind kind, const InputCapabilities& capabilities,
                           const SheetFrame& frame, const DancePadCells& cells)
    : kind_(kind), capabilities_(capabilities), frame_(frame), cells_(cells),
      multitouch_(kind == InputKind::Pointing && isMultitouch(capabilities)) {
    for (int code = 0; code < ABS_CNT; ++code)
        if (const auto& axis = capabilities.axes[code])
            axes_[code] = axis->value;
    if (multitouch_)
        contacts_.resize(std::clamp(capabilities.axes[ABS_MT_SLOT]->maximum + 1, 1, kMaxContacts));
}

SheetFrame InputDecoder::wholeArea(InputKind kind, const InputCapabilities& capabilities) {
    if (kind == InputKind::Pointing && isMultitouch(capabilities))
        return axesFrame(capabilities, ABS_MT_POSITION_X, ABS_MT_POSITION_Y);
    return axesFrame(capabilities, ABS_X, ABS_Y);
}

bool InputDecoder::feed(const InputEvent& event) {
    switch (event.type) {
    case EV_KEY:
        onKey(event.code, event.value);
        return false;
    case EV_ABS:
        onAxis(event.code, event.value);
        return false;
    case EV_SYN:
        return event.code == SYN_REPORT && endReading();
    default:
        return false;
    }
}

// Key repeats (value 2) change nothing.
void InputDecoder::onKey(int code, int32_t value) {
    if (code >= KEY_CNT || value == 2)
        return;
    held_.set(code, value != 0);
    if (kind_ != InputKind::DancePad)
        return;
    const int number = buttonNumber(capabilities_, code);
    std::erase(heldButtons_, number);
    if (value != 0 && number > 0 && number <= kDancePadButtons && cells_[number] != 0)
        heldButtons_.push_back(number);
}

void InputDecoder::onAxis(int code, int32_t value) {
    if (code >= ABS_CNT)
        return;
    axes_[code] = value;
    if (!multitouch_)
        return;
    if (code == ABS_MT_SLOT) {
        slot_ = value;
        return;
    }
    if (slot_ < 0 || slot_ >= int(contacts_.size()))
        return;
    Contact& contact = contacts_[slot_];
    if (code == ABS_MT_TRACKING_ID) {
        if (contact.trackingId < 0 && value >= 0)
            contact.order = ++touches_;
        contact.trackingId = value;
    } else if (code == ABS_MT_POSITION_X) {
        contact.x = value;
    } else if (code == ABS_MT_POSITION_Y) {
        contact.y = value;
    }
}

bool InputDecoder::endReading() {
    const PressPoint press = press_;
    const PressPoint pointer = pointer_;
    const std::optional<QPoint> contact = contact_;
    switch (kind_) {
    case InputKind::Pointing:
        multitouch_ ? readTouches() : readPointing();
        break;
    case InputKind::Joystick:
        readJoystick();
        break;
    case InputKind::DancePad:
        readDancePad();
        break;
    }
    return press != press_ || pointer != pointer_ || contact != contact_;
}

// Panels that have no touch button report the contact as the left button.
void InputDecoder::readPointing() {
    const bool touching =
        capabilities_.hasKey(BTN_TOUCH) ? held_.test(BTN_TOUCH) : held_.test(BTN_LEFT);
    pointer_ = frame_.toSheet(axes_[ABS_X], axes_[ABS_Y]).value_or(PressPoint{});
    press_ = touching ? pointer_ : PressPoint{};
    contact_ = touching ? std::optional(QPoint(axes_[ABS_X], axes_[ABS_Y])) : std::nullopt;
}

void InputDecoder::readTouches() {
    if (primary_ >= 0 && contacts_[primary_].trackingId < 0) {
        primary_ = -1;
        waitForAllUp_ = true;
    }
    const auto down = [](const Contact& c) { return c.trackingId >= 0; };
    if (std::none_of(contacts_.begin(), contacts_.end(), down))
        waitForAllUp_ = false;
    if (primary_ < 0 && !waitForAllUp_) {
        for (int i = 0; i < int(contacts_.size()); ++i)
            if (down(contacts_[i]) &&
                (primary_ < 0 || contacts_[i].order < contacts_[primary_].order))
                primary_ = i;
    }
    if (primary_ < 0) {
        press_ = {};
        pointer_ = {};
        contact_.reset();
        return;
    }
    const Contact& primary = contacts_[primary_];
    pointer_ = frame_.toSheet(primary.x, primary.y).value_or(PressPoint{});
    press_ = pointer_;
    contact_ = QPoint(primary.x, primary.y);
}

void InputDecoder::readJoystick() {
    pointer_ = frame_.toSheet(axes_[ABS_X], axes_[ABS_Y], true).value_or(PressPoint{});
    press_ = held_.any() ? pointer_ : PressPoint{};
    contact_ = held_.any() ? std::optional(QPoint(axes_[ABS_X], axes_[ABS_Y])) : std::nullopt;
}

void InputDecoder::readDancePad() {
    const int hat =
        5 + std::clamp(axes_[ABS_HAT0X], -1, 1) + 3 * std::clamp(axes_[ABS_HAT0Y], -1, 1);
    const int cell = !heldButtons_.empty() ? cells_[heldButtons_.back()] : hat != 5 ? hat : 0;
    press_ = cell != 0 ? cellCentre(cell) : PressPoint{};
    pointer_ = press_;
}

} // namespace mervak
