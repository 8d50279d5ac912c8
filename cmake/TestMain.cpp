#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

// The toolkit lets go of the recogniser that it makes for each widget with kinetic scrolling.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
    return "leak:QScroller::grabGesture";
}

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
