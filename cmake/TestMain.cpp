#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

// Widgets, the main queue and queued publications all need an application object; no display is needed.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // No test may reach the account of whoever runs it.
    qputenv("PGSERVICEFILE", "/nonexistent/service");
    qputenv("PGPASSFILE", "/nonexistent/passwords");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
