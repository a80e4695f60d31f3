#include "tracker/PerspectiveMapping.h"

#include "platform/Checked16.h"
#include "platform/NumericText.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace mervak {

namespace {

const QString kSection = QStringLiteral("WEBCAM");
constexpr int kBufferSize = 512;
constexpr double kWidth = 640.0;
constexpr double kHeight = 480.0;
constexpr int16_t kGrid = 120;
constexpr int kRows = 8;
constexpr int kColumns = 16;

// The targets of corners 1..4.
constexpr double kTargetU[5] = {0, 0, kWidth, kWidth, 0};
constexpr double kTargetV[5] = {0, 0, 0, kHeight, kHeight};

int16_t readValue(const PrivateProfile& ini, const QString& key) {
    return roundToInt16(Val(ini.readString(kSection, key, QString(), kBufferSize)));
}

QString cornerKey(char axis, int corner) {
    return QStringLiteral("%1%2").arg(QLatin1Char(axis)).arg(corner);
}

// Any arithmetic fault ends the inversion: a zero divisor or a result beyond
// double range.
struct InversionFault {};

double checked(double value) {
    if (!std::isfinite(value))
        throw InversionFault{};
    return value;
}

int16_t gridCell(double mapped, double extent) {
    return std::clamp<int16_t>(floorToInt16(mapped * kGrid / extent), 0, kGrid);
}

} // namespace

bool Corners::calibrated() const {
    return std::any_of(x.begin() + 1, x.end(), [](int16_t v) { return v != 0; }) ||
           std::any_of(y.begin() + 1, y.end(), [](int16_t v) { return v != 0; });
}

Corners ReadCorners(const PrivateProfile& ini) {
    Corners corners;
    for (int k = 1; k <= 4; ++k) {
        corners.x[k] = readValue(ini, cornerKey('x', k));
        corners.y[k] = readValue(ini, cornerKey('y', k));
    }
    return corners;
}

InversionFlags ReadInversionFlags(const PrivateProfile& ini) {
    return {readValue(ini, QStringLiteral("web_inv_v")),
            readValue(ini, QStringLiteral("web_inv_h"))};
}

bool WriteCorners(const PrivateProfile& ini, const Corners& corners, const QDate& today,
                  QString* error) {
    QList<PrivateProfile::KeyValue> entries;
    for (int k = 1; k <= 4; ++k) {
        entries.append({cornerKey('x', k), QString::number(corners.x[k])});
        entries.append({cornerKey('y', k), QString::number(corners.y[k])});
    }
    entries.append({QStringLiteral("data"), today.toString(QStringLiteral("dd/MM/yyyy"))});
    return ini.writeStrings(kSection, entries, error);
}

bool WriteInversionFlags(const PrivateProfile& ini, InversionFlags flags, QString* error) {
    return ini.writeStrings(kSection,
                            {{QStringLiteral("web_inv_h"), QString::number(flags.horizontal)},
                             {QStringLiteral("web_inv_v"), QString::number(flags.vertical)}},
                            error);
}

PerspectiveMapping::PerspectiveMapping(PrivateProfile ini,
                                       std::function<void(const QString&)> notify)
    : ini_(std::move(ini)), notify_(std::move(notify)) {}

bool PerspectiveMapping::BuildMapping() {
    if (!LoadCalibrationSystem())
        return false;
    InvertMatrix();
    for (int i = 1; i <= kRows; ++i)
        for (int j = 1; j <= kRows; ++j)
            inverse_[i][j] = aug_[i][j + kRows];
    ComputeCoefficients();
    return true;
}

// The stored date never stops the build: a fresh installation maps with all
// corners at 0, which the inversion reports.
bool PerspectiveMapping::LoadCalibrationSystem() {
    Corners corners;
    InversionFlags flags;
    try {
        corners = ReadCorners(ini_);
        flags = ReadInversionFlags(ini_);
    } catch (const Overflow16&) {
        return false;
    }
    flags_ = flags;
    std::memset(calib_, 0, sizeof calib_);
    for (std::ptrdiff_t k = 1; k <= 4; ++k) {
        const double x = corners.x[k];
        const double y = corners.y[k];
        double* uRow = calib_[2 * k - 1];
        double* vRow = calib_[2 * k];
        uRow[1] = x;
        uRow[2] = y;
        uRow[3] = 1.0;
        vRow[4] = x;
        vRow[5] = y;
        vRow[6] = 1.0;
        if (kTargetU[k] != 0) {
            uRow[7] = -kTargetU[k] * x;
            uRow[8] = -kTargetU[k] * y;
        }
        if (kTargetV[k] != 0) {
            vRow[7] = -kTargetV[k] * x;
            vRow[8] = -kTargetV[k] * y;
        }
    }
    return true;
}

// Rows are exchanged only for an exact zero pivot, with the first non-zero row
// below; with none, the all-zero spare row 0 comes in and the division faults.
void PerspectiveMapping::InvertMatrix() {
    std::memset(aug_, 0, sizeof aug_);
    for (int i = 1; i <= kRows; ++i) {
        for (int j = 1; j <= kRows; ++j)
            aug_[i][j] = calib_[i][j];
        aug_[i][i + kRows] = 1.0;
    }
    try {
        for (int p = 1; p <= kRows; ++p) {
            if (aug_[p][p] == 0.0)
                SwapRows(p, FindPivotRow(p, p));
            const double pivot = aug_[p][p];
            if (pivot == 0.0)
                throw InversionFault{};
            for (int j = p; j <= kColumns; ++j)
                aug_[p][j] = checked(aug_[p][j] / pivot);
            if (p < kRows)
                eliminate(p, p + 1, kRows);
            if (p > 1)
                eliminate(p, 1, p - 1);
        }
    } catch (const InversionFault&) {
        notify_(kUnstable);
    }
}

// All products of the group first, then the subtractions: each row's multiplier
// stays as it was while the row's own pivot column is cleared.
void PerspectiveMapping::eliminate(int pivot, int first, int last) {
    double scratch[9][17] = {};
    for (int i = first; i <= last; ++i)
        for (int j = 1; j <= kColumns; ++j)
            scratch[i][j] = checked(aug_[i][pivot] * aug_[pivot][j]);
    for (int i = first; i <= last; ++i)
        for (int j = 1; j <= kColumns; ++j)
            aug_[i][j] = checked(aug_[i][j] - scratch[i][j]);
}

int PerspectiveMapping::FindPivotRow(int start, int column) const {
    for (int r = start; r <= kRows; ++r)
        if (aug_[r][column] != 0.0)
            return r;
    return 0;
}

void PerspectiveMapping::SwapRows(int a, int b) {
    for (int j = 1; j <= kColumns; ++j)
        std::swap(aug_[a][j], aug_[b][j]);
}

// c = A^-1 b, with b = (0, 0, 640, 0, 640, 480, 0, 480) and its zero terms left out.
void PerspectiveMapping::ComputeCoefficients() {
    for (int i = 1; i <= kRows; ++i)
        coeffs_[i] = kWidth * inverse_[i][3] + kWidth * inverse_[i][5] + kHeight * inverse_[i][6] +
                     kHeight * inverse_[i][8];
}

double PerspectiveMapping::MapX(int16_t x, int16_t y) const {
    const double d = coeffs_[7] * x + coeffs_[8] * y + 1.0;
    if (d == 0.0)
        throw MappingFault();
    return (coeffs_[1] * x + coeffs_[2] * y + coeffs_[3]) / d;
}

double PerspectiveMapping::MapY(int16_t x, int16_t y) const {
    const double d = coeffs_[7] * x + coeffs_[8] * y + 1.0;
    if (d == 0.0)
        throw MappingFault();
    return (coeffs_[4] * x + coeffs_[5] * y + coeffs_[6]) / d;
}

SheetCell PerspectiveMapping::cameraToSheet(int status, int16_t x, int16_t y) const {
    if (status != 1)
        return {};
    if (flags_.vertical == 1)
        y = sub16(480, y);
    if (flags_.horizontal == 1)
        x = sub16(640, x);
    return {gridCell(MapX(x, y), kWidth), gridCell(MapY(x, y), kHeight)};
}

} // namespace mervak
