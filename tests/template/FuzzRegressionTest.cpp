#include "support/TestFiles.h"
#include "template/MvdFormat.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"
#include "template/PageModel.h"

#include <QDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Inputs the fuzz targets once found troublesome, and the broken samples: each
// reader must turn them into an error or a Template that writes and reads back.
TEST(FuzzRegression, EveryKeptInputReadsOrFailsCleanly) {
    QFileInfoList inputs = QDir(test::dataPath("template/fuzz")).entryInfoList(QDir::Files);
    inputs += QDir(test::dataPath("template/broken")).entryInfoList(QDir::Files);
    ASSERT_GT(inputs.size(), 1);
    for (const QFileInfo& file : inputs) {
        const QByteArray bytes = test::readAll(file.filePath());
        Template t, back;
        if (!readMvw(bytes, t)) {
            EXPECT_FALSE(readMvw(writeMvw(t), back)) << file.fileName();
            EXPECT_EQ(back.AreaCount(), t.AreaCount()) << file.fileName();
        }
        Template d, dBack;
        EXPECT_TRUE(readMvd(bytes, d) || !readMvd(writeMvd(d).bytes, dBack)) << file.fileName();
        QList<Area> areas;
        readPageModel(bytes, areas);
    }
}

} // namespace
} // namespace mervak
