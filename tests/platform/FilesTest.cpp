#include "platform/AtomicFile.h"
#include "platform/PathResolver.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace mervak {
namespace {

TEST(PathResolver, ConvertsStoredForms) {
    EXPECT_EQ(toLocalPath("C:\\plant\\joc.mvw"), "/plant/joc.mvw");
    EXPECT_EQ(toLocalPath("sons\\bell.wav"), "sons/bell.wav");
    EXPECT_EQ(toLocalPath(" d:x "), "x");
    EXPECT_TRUE(isAbsoluteStoredPath("C:\\a"));
    EXPECT_TRUE(isAbsoluteStoredPath("\\a"));
    EXPECT_TRUE(isAbsoluteStoredPath("/a"));
    EXPECT_FALSE(isAbsoluteStoredPath("a\\b"));
}

class ResolveTest : public ::testing::Test {
protected:
    void SetUp() override {
        QDir(root.path()).mkpath("Plant/Sons");
        test::writeAll(root.filePath("Plant/Sons/Bell.WAV"), "RIFF");
        test::writeAll(root.filePath("Plant/joc.mvw"), "x");
    }
    QString plant() const { return root.filePath("Plant"); }
    QTemporaryDir root;
};

TEST_F(ResolveTest, FindsFilesWhateverTheirCaseAndForm) {
    const QString bell = root.filePath("Plant/Sons/Bell.WAV");
    const std::pair<QString, QString> cases[] = {
        {"Sons\\Bell.WAV", bell},
        {"SONS\\BELL.WAV", bell},
        {"C:\\MERVAK\\PLANT\\SONS\\BELL.WAV", bell},
        {"C:" + root.filePath("PLANT/SONS/BELL.WAV").replace('/', '\\'), bell},
        {"JOC.MVW", root.filePath("Plant/joc.mvw")},
        {"Sons\\missing.wav", plant() + "/Sons/missing.wav"},
        {"", ""},
    };
    for (const auto& [stored, expected] : cases)
        EXPECT_EQ(resolveStoredPath(stored, plant()), expected) << stored;
}

TEST_F(ResolveTest, CaseInsensitiveLookupPrefersTheExactName) {
    test::writeAll(root.filePath("Plant/JOC.MVW"), "y");
    EXPECT_EQ(findCaseInsensitive(root.filePath("Plant/JOC.MVW")), root.filePath("Plant/JOC.MVW"));
    EXPECT_EQ(findCaseInsensitive(root.filePath("plant/nothing")), QString());
}

// A file-size limit makes the write fail half way, as a full disk does.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved_);
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = saved_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &saved_);
        std::signal(SIGXFSZ, previousHandler_);
    }

private:
    rlimit saved_{};
    void (*previousHandler_)(int) = nullptr;
};

TEST(AtomicFile, AFullDiskLeavesTheOldFileAndNoTemporary) {
    QTemporaryDir dir;
    const QString path = dir.filePath("plantilla.mvw");
    test::writeAll(path, "the teacher's work");
    QString error;
    {
        FileSizeLimit limit(4096);
        EXPECT_FALSE(writeFileAtomically(path, QByteArray(100000, 'x'), &error));
    }
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(test::readAll(path), QByteArray("the teacher's work"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"plantilla.mvw"});
}

} // namespace
} // namespace mervak
