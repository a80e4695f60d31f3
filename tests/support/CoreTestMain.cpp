#include <QCoreApplication>
#include <gtest/gtest.h>

// Tests of Qt code need an application object for timers and events.
int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
