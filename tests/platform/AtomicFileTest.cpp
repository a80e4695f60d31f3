#include "platform/AtomicFile.h"

#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace mervak {
namespace {

TEST(AtomicFile, ReplacesTheWholeFileOrSaysWhyNot) {
    QTemporaryDir dir;
    const QString path = dir.filePath("a.mvw");
    test::writeAll(path, "old contents that are longer");
    ASSERT_TRUE(writeFileAtomically(path, "new"));
    EXPECT_EQ(test::readAll(path), QByteArray("new"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"a.mvw"});
    QString error;
    EXPECT_FALSE(writeFileAtomically(dir.filePath("missing/a.mvw"), "x", &error));
    EXPECT_FALSE(error.isEmpty());
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
