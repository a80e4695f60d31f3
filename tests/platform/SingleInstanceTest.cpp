#include "platform/SingleInstance.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mervak {
namespace {

TEST(SingleInstance, ASecondCopyIsRefusedUntilTheFirstEnds) {
    QTemporaryDir runtime;
    {
        SingleInstance first(runtime.path());
        ASSERT_TRUE(first.acquire());
        SingleInstance second(runtime.path());
        EXPECT_FALSE(second.acquire());
    }
    SingleInstance third(runtime.path());
    EXPECT_TRUE(third.acquire());
}

TEST(SingleInstance, TheLockOfACopyThatDiedIsTakenOver) {
    QTemporaryDir runtime;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        SingleInstance dying(runtime.path());
        _exit(dying.acquire() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    SingleInstance next(runtime.path());
    EXPECT_TRUE(next.acquire());
}

} // namespace
} // namespace mervak
