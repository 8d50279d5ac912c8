#include "app/AppDelegate.h"

#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/editor/SnippetViewController.h"
#include "app/TerminationSignals.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <csignal>

using namespace quillet;

namespace {

class AppDelegateTest : public TemporaryLibrary {
protected:
    static platform::TextView& code(AppDelegate& delegate) {
        return *delegate.window().findChild<platform::TextView*>();
    }

    // The codes of all snippets that are on the disk.
    QStringList stored() const {
        CoreDataStack reopened(directory);
        QStringList codes;
        for (const auto& object : reopened.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}))
            codes += static_cast<const Snippet&>(*object).code();
        return codes;
    }
};

TEST_F(AppDelegateTest, LeavingTheScreenSavesWhatIsOnIt) {
    AppDelegate delegate;
    delegate.didFinishLaunching();
    QTest::keyClicks(&code(delegate), QStringLiteral("typed"));
    EXPECT_TRUE(stored().isEmpty());
    delegate.window().showMinimized();
    turn();
    EXPECT_EQ(stored(), QStringList{QStringLiteral("typed")});
    delegate.activate();
    EXPECT_FALSE(delegate.window().isMinimized());
    QTest::keyClicks(&code(delegate), QStringLiteral(" more "));
    delegate.save();
    EXPECT_EQ(stored().size(), 1);
    EXPECT_TRUE(stored().first().contains(QStringLiteral("more")));
}

TEST_F(AppDelegateTest, ATerminationSignalSavesBeforeTheEnd) {
    AppDelegate delegate;
    delegate.didFinishLaunching();
    const TerminationSignals termination([&delegate] {
        delegate.save();
        QApplication::quit();
    });
    QTest::keyClicks(&code(delegate), QStringLiteral("unsaved"));
    QMetaObject::invokeMethod(qApp, [] { std::raise(SIGTERM); }, Qt::QueuedConnection);
    QApplication::exec();
    EXPECT_EQ(stored(), QStringList{QStringLiteral("unsaved")});
}

TEST_F(AppDelegateTest, TheLibraryIsThereBeforeTheWindowAndSavedAtTheEnd) {
    ::testing::internal::CaptureStdout();
    {
        AppDelegate delegate;
        EXPECT_TRUE(::testing::internal::GetCapturedStdout().empty()) << "made, and nothing built yet";
        ::testing::internal::CaptureStdout();
        delegate.didFinishLaunching();
        EXPECT_TRUE(delegate.window().isVisible());
        Snippet::create(QStringLiteral("t"), {}, QStringLiteral("pending"), QStringLiteral("swift"));
    }
    const QString log = QString::fromStdString(::testing::internal::GetCapturedStdout());
    EXPECT_TRUE(log.startsWith(QStringLiteral("☁️ Loading store\n")));
    EXPECT_TRUE(log.endsWith(QStringLiteral("💾 Attempted to save due to: App Termination\n"
                                            "💾 actually saved: App Termination\n")));
    EXPECT_EQ(stored(), QStringList{QStringLiteral("pending")});
}

} // namespace
