#pragma once

#include "platform/PrivateProfile.h"

#include <QDate>
#include <QString>
#include <array>
#include <cstdint>
#include <functional>
#include <stdexcept>

namespace mervak {

// The camera points of the sheet's corners, 1 top-left, 2 top-right, 3 bottom-right,
// 4 bottom-left (index 0 unused), in pixels of a 640 x 480 frame.
struct Corners {
    std::array<int16_t, 5> x{};
    std::array<int16_t, 5> y{};

    // A fresh installation stores none: every corner at 0.
    bool calibrated() const;
};

// 1 = mirror the camera axis before mapping.
struct InversionFlags {
    int16_t vertical = 0;   // web_inv_v: y becomes 480 - y
    int16_t horizontal = 0; // web_inv_h: x becomes 640 - x
};

// [WEBCAM] of MERVAK.INI; values are read with Val, so a missing key counts as 0.
// Reading throws Overflow16 for a value beyond 16 bits.
Corners ReadCorners(const PrivateProfile& ini);
InversionFlags ReadInversionFlags(const PrivateProfile& ini);
// Stores the eight values and "data", today's date.
bool WriteCorners(const PrivateProfile& ini, const Corners& corners, const QDate& today,
                  QString* error = nullptr);
bool WriteInversionFlags(const PrivateProfile& ini, InversionFlags flags, QString* error = nullptr);

// The point mapped has a zero denominator: the caller's operation ends.
class MappingFault : public std::domain_error {
public:
    MappingFault() : std::domain_error("division by zero in the perspective mapping") {}
};

// A position on the sheet grid, 0..120 in both directions.
struct SheetCell {
    int16_t x = 0;
    int16_t y = 0;
};

// The plane projective mapping from the calibrated quadrilateral onto the upright
// rectangle 0..640 x 0..480: an 8 x 8 system inverted by Gauss-Jordan elimination
// on an 8 x 16 augmented matrix, rebuilt from the INI file each time.
class PerspectiveMapping {
public:
    static inline const QString kUnstable =
        QStringLiteral("The Structure is Not Stable, Please Check the InputData.");

    // `notify` shows a message box (the unstable-structure message).
    PerspectiveMapping(PrivateProfile ini, std::function<void(const QString&)> notify);

    // False only when the corners could not be read; an unstable corner set is
    // reported by the message, and the coefficients are still taken from what the
    // inversion left.
    bool BuildMapping();

    // Camera pixels to the 640 x 480 target; throw MappingFault on a zero denominator.
    double MapX(int16_t x, int16_t y) const;
    double MapY(int16_t x, int16_t y) const;

    // A tracker reading to the sheet grid: (0, 0) unless `status` is 1; else the
    // mirrored point, mapped, scaled to 0..120 with Int and clamped.
    SheetCell cameraToSheet(int status, int16_t x, int16_t y) const;

    InversionFlags inversion() const { return flags_; }
    void setInversion(InversionFlags flags) { flags_ = flags; }
    // c1..c8 (index 0 unused).
    const std::array<double, 9>& coefficients() const { return coeffs_; }

private:
    bool LoadCalibrationSystem();
    void InvertMatrix();
    void eliminate(int pivot, int first, int last);
    int FindPivotRow(int start, int column) const;
    void SwapRows(int a, int b);
    void ComputeCoefficients();

    PrivateProfile ini_;
    std::function<void(const QString&)> notify_;
    InversionFlags flags_;
    double calib_[9][9] = {};
    double aug_[9][17] = {};
    double inverse_[9][9] = {};
    std::array<double, 9> coeffs_{};
};

} // namespace mervak
