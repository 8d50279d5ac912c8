#include "Quillet/screens/WhatsNew.h"

#include "Halcyonix/FilledButton.h"
#include "Quillet/core/tests/TemporarySettings.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

using namespace quillet;
using halcyonix::ModalViewController;

namespace {

class WhatsNewTest : public TemporarySettings, public halcyonix::ModalViewControllerDelegate {
protected:
    void didPressButton(ModalViewController& /*modal*/) override { ++presses; }

    void SetUp() override {
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        root.emplace();
        root->resize(900, 600);
        root->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*root));
    }

    void check(const char* current) {
        checkWhatsNew(*root, *this, KeyStore::shared(), QString::fromLatin1(current));
    }

    ModalViewController* modal() const {
        return qobject_cast<ModalViewController*>(root->presentedViewController());
    }

    // Whether a user who saw `seen` is shown the news of `current`.
    bool shows(const char* seen, const char* current) {
        KeyStore::shared().setVersionSeen(QString::fromLatin1(seen));
        check(current);
        const bool isShown = modal() != nullptr;
        if (isShown) root->dismiss(platform::Animated::No);
        return isShown;
    }

    bool waitUntilSeen(const char* version) const {
        return QTest::qWaitFor(
            [&] { return KeyStore::shared().versionSeen() == QString::fromLatin1(version); });
    }

    std::optional<platform::ViewController> root;
    int presses = 0;
};

TEST_F(WhatsNewTest, TheFirstStartShowsTheCardAndItsPressDismissesIt) {
    check("3.1.8");
    ASSERT_NE(modal(), nullptr);
    EXPECT_EQ(modal()->delegate, this);
    EXPECT_EQ(modal()->modalPresentationStyle, platform::ModalPresentationStyle::OverCurrentContext);
    EXPECT_EQ(modal()->titleLabel().text(), QStringLiteral("Quillet 3.1.8"));
    EXPECT_EQ(
        modal()->bodyLabel().text(),
        QStringLiteral("This update makes some small changes for the big upgrade coming in June, which "
                       "will take your experience to the next level. We can't wait to see what you "
                       "think of it!\n\nChanges:\n- Fix the background color on some lists\n- Improve "
                       "sync speed\n- Display your originally downloaded version in the settings page"));
    EXPECT_EQ(modal()->config().imageName, QStringLiteral("code"));
    EXPECT_EQ(modal()->config().systemImageName, QStringLiteral("app.badge.fill"));
    EXPECT_TRUE(waitUntilSeen("3.1.8"));
    auto& button = modal()->button();
    EXPECT_EQ(button.text(), QStringLiteral("Get Coding"));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(modal(), nullptr);
    check("3.1.8"); // the root came up again
    EXPECT_EQ(modal(), nullptr);
}

TEST_F(WhatsNewTest, TheTitleIsNoVersionOfTheProgram) {
    check("9.0");
    ASSERT_NE(modal(), nullptr);
    EXPECT_EQ(modal()->titleLabel().text(), QStringLiteral("Quillet 3.1.8"));
    EXPECT_TRUE(waitUntilSeen("9.0"));
}

TEST_F(WhatsNewTest, VersionsAreComparedByCodePoints) {
    EXPECT_TRUE(shows("3.1.7", "3.1.8"));
    EXPECT_FALSE(shows("3.1.8", "3.1.8"));
    EXPECT_FALSE(shows("3.1.9", "3.1.8")) << "another device is ahead";
    EXPECT_FALSE(shows("3.1.8", "3.1.10"));
    EXPECT_TRUE(shows("3.1.10", "3.1.8"));
    EXPECT_TRUE(shows("3.1", "3.1.8")) << "the start of a text comes before the text";
    EXPECT_FALSE(shows("0", ""));
    EXPECT_TRUE(shows("", "3.1.8"));
}

TEST_F(WhatsNewTest, ACardThatHasNotComeToRestCountsAsNotSeen) {
    QApplication::setEffectEnabled(Qt::UI_General, true);
    check("3.1.8");
    ASSERT_NE(modal(), nullptr);
    EXPECT_EQ(KeyStore::shared().versionSeen(), QStringLiteral("0"));
    root.reset(); // in the middle of its way
    QTest::qWait(0);
    EXPECT_EQ(KeyStore::shared().versionSeen(), QStringLiteral("0"));
}

} // namespace
