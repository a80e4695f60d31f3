#include "tracker/PerspectiveMapping.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

QByteArray cornersIni(std::array<int, 8> xy, const char* extra = "") {
    QByteArray ini = "[WEBCAM]\r\n";
    for (std::size_t k = 0; k < 4; ++k)
        ini += QStringLiteral("x%1=%2\r\ny%1=%3\r\n")
                   .arg(k + 1)
                   .arg(xy[2 * k])
                   .arg(xy[2 * k + 1])
                   .toLatin1();
    return ini + extra;
}

class PerspectiveMappingTest : public ::testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("MERVAK.INI"));
    QStringList notices;
    PerspectiveMapping mapping{PrivateProfile(path),
                               [this](const QString& text) { notices.append(text); }};

    bool build(const QByteArray& ini) {
        test::writeAll(path, ini);
        return mapping.BuildMapping();
    }
};

constexpr std::array<int, 8> kIdentity{0, 0, 640, 0, 640, 480, 0, 480};

// Corner 1 at (0, 0) leaves a zero first pivot: the rows must be exchanged for
// the identity and the plain scale to come out.
TEST_F(PerspectiveMappingTest, CoefficientsOfKnownCorners) {
    struct Row {
        std::array<int, 8> corners;
        std::array<double, 9> coefficients;
    } rows[] = {
        {kIdentity, {0, 1, 0, 0, 0, 1, 0, 0, 0}},
        {{0, 0, 638, 0, 638, 478, 0, 478}, {0, 640.0 / 638, 0, 0, 0, 480.0 / 478, 0, 0, 0}},
    };
    for (const Row& row : rows) {
        ASSERT_TRUE(build(cornersIni(row.corners)));
        for (int i = 1; i <= 8; ++i)
            EXPECT_NEAR(mapping.coefficients()[i], row.coefficients[i], 1e-12) << i;
    }
    EXPECT_TRUE(notices.isEmpty());
}

TEST_F(PerspectiveMappingTest, APerspectiveQuadrilateralMapsOntoTheRectangle) {
    ASSERT_TRUE(build(cornersIni({112, 64, 548, 84, 604, 436, 52, 412})));
    const int16_t corners[4][2] = {{112, 64}, {548, 84}, {604, 436}, {52, 412}};
    const double targets[4][2] = {{0, 0}, {640, 0}, {640, 480}, {0, 480}};
    for (int k = 0; k < 4; ++k) {
        EXPECT_NEAR(mapping.MapX(corners[k][0], corners[k][1]), targets[k][0], 1e-6) << k;
        EXPECT_NEAR(mapping.MapY(corners[k][0], corners[k][1]), targets[k][1], 1e-6) << k;
    }
}

// Nothing calibrated: the message, and still True.
TEST_F(PerspectiveMappingTest, AllCornersZeroIsReportedButStillBuilt) {
    EXPECT_TRUE(build("[WEBCAM]\r\ndata=01/02/2024\r\n"));
    EXPECT_EQ(notices, QStringList{PerspectiveMapping::kUnstable});
    EXPECT_FALSE(build(cornersIni({40000, 0, 640, 0, 640, 480, 0, 480})));
}

TEST_F(PerspectiveMappingTest, CameraPointToSheetCell) {
    struct Row {
        const char* flags;
        int status;
        int16_t x, y;
        int16_t column, row;
    } rows[] = {
        {"", 1, 320, 240, 60, 60},
        {"", 0, 320, 240, 0, 0},
        {"", 1, -1, -1, 0, 0},
        {"", 1, 6, 3, 1, 0},
        {"", 1, 640, 480, 120, 120},
        {"", 1, 700, 600, 120, 120},
        {"web_inv_h=1\r\n", 1, 0, 0, 120, 0},
        {"web_inv_v=1\r\n", 1, 0, 480, 0, 0},
        {"web_inv_v=1\r\nweb_inv_h=1\r\n", 1, 160, 120, 90, 90},
    };
    for (const Row& row : rows) {
        ASSERT_TRUE(build(cornersIni(kIdentity, row.flags)));
        const SheetCell cell = mapping.cameraToSheet(row.status, row.x, row.y);
        EXPECT_EQ(cell.x, row.column) << row.flags << row.x << "," << row.y;
        EXPECT_EQ(cell.y, row.row) << row.flags << row.x << "," << row.y;
    }
}

TEST_F(PerspectiveMappingTest, WrittenCornersAndFlagsReadBack) {
    const PrivateProfile ini(path);
    Corners corners;
    corners.x = {0, 1, 2, 3, 4};
    corners.y = {0, -5, 6, 7, 8};
    ASSERT_TRUE(WriteCorners(ini, corners, QDate(2024, 3, 9)));
    ASSERT_TRUE(WriteInversionFlags(ini, {1, 0}));
    EXPECT_EQ(ReadCorners(ini).y, corners.y);
    EXPECT_EQ(ReadInversionFlags(ini).vertical, 1);
    EXPECT_EQ(ini.readString("WEBCAM", "data", "", 512), "09/03/2024");
}

} // namespace
} // namespace mervak
