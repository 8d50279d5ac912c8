#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

// Widgets, the main queue and queued publications all need an application object; no display is needed.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // No test may reach the account of whoever runs it. A folder says nothing about an account, not even that
    // there is none, of which the program would warn.
    qputenv("PGSERVICEFILE", "/");
    qputenv("PGPASSFILE", "/");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
