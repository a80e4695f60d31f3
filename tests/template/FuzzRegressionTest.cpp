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
    const QStringList folders = {test::dataPath("template/fuzz"),
                                 test::dataPath("template/broken")};
    int inputs = 0;
    for (const QString& folder : folders) {
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
            const QByteArray bytes = test::readAll(file.filePath());
            const std::string name = file.fileName().toStdString();
            ++inputs;
            Template t;
            if (!readMvw(bytes, t)) {
                Template back;
                EXPECT_FALSE(readMvw(writeMvw(t), back)) << name;
                EXPECT_EQ(back.AreaCount(), t.AreaCount()) << name;
            }
            Template d;
            if (!readMvd(bytes, d)) {
                Template back;
                EXPECT_FALSE(readMvd(writeMvd(d).bytes, back)) << name;
            }
            QList<Area> areas;
            readPageModel(bytes, areas);
        }
    }
    EXPECT_GT(inputs, 0);
}

} // namespace
} // namespace mervak
