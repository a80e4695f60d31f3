#include "devices/ReplyWait.h"

#include <QSignalSpy>
#include <gtest/gtest.h>
#include <limits>

namespace mervak {
namespace {

TEST(ReplyWait, WaitsTheDelayButNeverUnderTheMinimumNorOverTheMaximum) {
    struct Case {
        int32_t seconds;
        int ms;
    };
    const Case cases[] = {
        {0, kMinReplyWaitMs},
        {-5, kMinReplyWaitMs},
        {std::numeric_limits<int32_t>::min(), kMinReplyWaitMs},
        {1, 1000},
        {60, 60000},
        {61, kMaxReplyWaitMs},
        {std::numeric_limits<int32_t>::max(), kMaxReplyWaitMs},
    };
    for (const Case& c : cases)
        EXPECT_EQ(replyWaitMs(c.seconds), c.ms) << c.seconds;
}

TEST(ReplyWait, EndsAtTheFirstCarriageReturnWithEverythingCollected) {
    ReplyWait wait;
    QSignalSpy finished(&wait, &ReplyWait::finished);
    wait.begin(60000);
    wait.append(QStringLiteral("#"));
    EXPECT_TRUE(finished.isEmpty());
    wait.append(QStringLiteral("0\rrest"));
    ASSERT_EQ(finished.size(), 1);
    EXPECT_EQ(finished[0][0].toString(), QStringLiteral("#0\rrest"));
    EXPECT_FALSE(wait.isWaiting());
    wait.append(QStringLiteral("late\r"));
    EXPECT_EQ(finished.size(), 1);
}

TEST(ReplyWait, RunsOutWithWhatCameWithoutACarriageReturn) {
    ReplyWait wait;
    QSignalSpy finished(&wait, &ReplyWait::finished);
    wait.begin(1);
    wait.append(QStringLiteral("#0"));
    ASSERT_TRUE(finished.wait(5000));
    EXPECT_EQ(finished[0][0].toString(), QStringLiteral("#0"));
}

TEST(ReplyWait, AFloodIsCutShort) {
    ReplyWait wait;
    QSignalSpy finished(&wait, &ReplyWait::finished);
    wait.begin(1);
    for (int i = 0; i < 100; ++i)
        wait.append(QString(1000, u'x'));
    ASSERT_TRUE(finished.wait(5000));
    EXPECT_EQ(finished[0][0].toString().size(), kMaxReplyLength);
}

TEST(ReplyWait, ACancelledWaitNeverFinishes) {
    ReplyWait wait;
    QSignalSpy finished(&wait, &ReplyWait::finished);
    wait.begin(1);
    wait.cancel();
    wait.append(QStringLiteral("#0\r"));
    EXPECT_FALSE(finished.wait(50));
}

} // namespace
} // namespace mervak
