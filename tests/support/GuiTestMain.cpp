#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // ctest lists the tests without the test environment; without a display the
    // widgets are drawn offscreen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
