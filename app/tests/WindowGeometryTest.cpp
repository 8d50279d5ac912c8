#include "app/WindowGeometry.h"

#include "Quillet/core/tests/TemporaryLibrary.h"
#include "app/AppDelegate.h"

#include <QtCore/QFile>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace quillet;

namespace {

const QRect mainScreen(0, 0, 1920, 1040);
const QRect secondScreen(1920, 200, 1280, 800);
const QList<QRect> screens{mainScreen, secondScreen};

QRect broughtBack(const QRect& window) {
    return WindowGeometry{window, false, 330}.broughtBack(screens).normal;
}

TEST(WindowGeometry, AWindowThatCanBeTakenStaysWhereItIs) {
    for (const QRect& window : {QRect(100, 100, 800, 600), QRect(-600, 40, 800, 600),
                                QRect(2000, 900, 800, 600), QRect(1800, 300, 800, 600)})
        EXPECT_EQ(broughtBack(window), window);
}

TEST(WindowGeometry, AWindowThatIsOutOfReachComesToTheMainScreen) {
    for (const QRect& window :
         {QRect(5000, 100, 800, 600), QRect(100, -300, 800, 600), QRect(-750, 100, 800, 600),
          QRect(100, 1030, 800, 600), QRect(2000, 20, 800, 600), QRect(-90'000, -90'000, 5000, 600)}) {
        const QRect back = broughtBack(window);
        EXPECT_TRUE(mainScreen.contains(back));
        EXPECT_EQ(back.size(), window.size().boundedTo(mainScreen.size()));
    }
}

TEST(WindowGeometry, NoWindowIsLargerThanItsScreen) {
    EXPECT_EQ(broughtBack({2000, 300, 4000, 3000}), QRect(2000, 300, 1280, 800));
    EXPECT_EQ((WindowGeometry{{9000, 9000, 1, 1}, false, 1}.broughtBack({}).normal), QRect(9000, 9000, 1, 1));
}

class WindowPlace : public TemporaryLibrary {
protected:
    QString path() const { return root.filePath(QStringLiteral("state/Quillet/Window.json")); }

    void writeFile(const QByteArray& bytes) const {
        QDir().mkpath(root.filePath(QStringLiteral("state/Quillet")));
        QFile file(path());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }

    template <typename Visit>
    static void run(Visit visit) {
        AppDelegate delegate;
        delegate.didFinishLaunching();
        turn();
        visit(delegate.window());
    }
};

TEST_F(WindowPlace, TheFileLiesWithTheStateOfThisMachine) {
    EXPECT_EQ(windowGeometryPath(), path());
    for (const char* none : {"", "relative/path"}) {
        qputenv("XDG_STATE_HOME", none);
        EXPECT_EQ(windowGeometryPath(),
                  QDir::home().filePath(QStringLiteral(".local/state/Quillet/Window.json")));
    }
}

TEST_F(WindowPlace, WhatIsWrittenIsRead) {
    const WindowGeometry geometry{{-20, 30, 700, 500}, true, 412};
    writeWindowGeometry(path(), geometry);
    EXPECT_EQ(readWindowGeometry(path()), geometry);
    writeWindowGeometry(QStringLiteral("/proc/none/Window.json"), geometry); // cannot be, and nothing happens
}

TEST_F(WindowPlace, ADamagedFileIsIgnored) {
    EXPECT_FALSE(readWindowGeometry(path())) << "there is none";
    const QByteArray good = R"({"x":1,"y":2,"width":700,"height":500,"maximized":false,"primaryWidth":300})";
    writeFile(good);
    EXPECT_TRUE(readWindowGeometry(path()));
    for (const QByteArray& bad :
         {QByteArray(), QByteArray("null"), good.chopped(1), QByteArray(good).replace("700", "-700"),
          QByteArray(good).replace("500", "1e300"), QByteArray(good).replace("\"x\":1", "\"x\":\"1\""),
          QByteArray(good).replace("300", "0"), QByteArray(good).replace("\"y\":2,", "")}) {
        writeFile(bad);
        EXPECT_FALSE(readWindowGeometry(path())) << bad.constData();
    }
    run([](const auto& window) { EXPECT_TRUE(window.isVisible()); });
}

TEST_F(WindowPlace, AWindowComesBackWhereItWasClosed) {
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect place(available.x() + 30, available.y() + 40, 740, 420);
    run([&](auto& window) {
        window.setGeometry(place);
        window.setPrimaryWidth(300);
        turn();
        EXPECT_FALSE(QFile::exists(path())) << "not at each move";
        window.close();
    });
    run([&](auto& window) {
        EXPECT_EQ(window.geometry(), place);
        EXPECT_EQ(window.primaryWidth(), 300);
        EXPECT_FALSE(window.isMaximized());
        window.showMaximized();
        turn();
        window.showMinimized(); // leaves the screen
        turn();
    });
    EXPECT_EQ(readWindowGeometry(path()), (WindowGeometry{place, true, 300}));
    run([&](auto& window) {
        EXPECT_TRUE(window.isMaximized());
        window.showNormal();
        turn();
        EXPECT_EQ(window.geometry(), place);
    });
}

} // namespace
