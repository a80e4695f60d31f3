#include "devices/SheetFrame.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <limits>

namespace mervak {

namespace {

constexpr int kSpan = kSheetMax - kSheetMin;

// The place of `value` between `from` and `to` as 0..1; none outside.
std::optional<double> fraction(int32_t value, int32_t from, int32_t to, bool clamp) {
    if (from == to)
        return std::nullopt;
    const double f = double(value - from) / double(to - from);
    if (clamp)
        return qBound(0.0, f, 1.0);
    if (f < 0.0 || f > 1.0)
        return std::nullopt;
    return f;
}

int16_t sheetUnits(double f) {
    return static_cast<int16_t>(kSheetMin + std::lround(f * kSpan));
}

const QString kMirrorX = QStringLiteral("MirallX");
const QString kMirrorY = QStringLiteral("MirallY");

} // namespace

std::optional<PressPoint> SheetFrame::toSheet(int32_t x, int32_t y, bool clamp) const {
    const auto fx = fraction(x, left, right, clamp);
    const auto fy = fraction(y, top, bottom, clamp);
    if (!fx || !fy)
        return std::nullopt;
    const double across = mirrorX ? 1.0 - *fx : *fx;
    const double down = mirrorY ? 1.0 - *fy : *fy;
    return PressPoint{sheetUnits(across), sheetUnits(1.0 - down)};
}

SheetFrame readSheetFrame(const PrivateProfile& file, const QString& model, SheetFrame whole) {
    constexpr long long kMissing = std::numeric_limits<long long>::min();
    const long long corners[] = {file.readInteger(model, QStringLiteral("X0"), kMissing),
                                 file.readInteger(model, QStringLiteral("Y0"), kMissing),
                                 file.readInteger(model, QStringLiteral("X1"), kMissing),
                                 file.readInteger(model, QStringLiteral("Y1"), kMissing)};
    if (std::none_of(std::begin(corners), std::end(corners),
                     [&](long long c) { return c == kMissing; }))
        whole = {int32_t(corners[0]),
                 int32_t(corners[1]),
                 int32_t(corners[2]),
                 int32_t(corners[3]),
                 false,
                 false};
    whole.mirrorX = file.readInteger(model, kMirrorX, 0) != 0;
    whole.mirrorY = file.readInteger(model, kMirrorY, 0) != 0;
    return whole;
}

bool writeSheetFrame(const PrivateProfile& file, const QString& model, const SheetFrame& frame,
                     QString* error) {
    const auto number = [](long long n) { return QString::number(n); };
    return file.writeStrings(model,
                             {{QStringLiteral("X0"), number(frame.left)},
                              {QStringLiteral("Y0"), number(frame.top)},
                              {QStringLiteral("X1"), number(frame.right)},
                              {QStringLiteral("Y1"), number(frame.bottom)},
                              {kMirrorX, number(frame.mirrorX)},
                              {kMirrorY, number(frame.mirrorY)}},
                             error);
}

bool writeSheetMirror(const PrivateProfile& file, const QString& model, bool mirrorX, bool mirrorY,
                      QString* error) {
    return file.writeStrings(
        model, {{kMirrorX, QString::number(mirrorX)}, {kMirrorY, QString::number(mirrorY)}}, error);
}

} // namespace mervak
