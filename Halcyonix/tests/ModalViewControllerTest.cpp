#include "Halcyonix/ModalViewController.h"

#include "Halcyonix/FilledButton.h"
#include "Halcyonix/GrayView.h"
#include "Halcyonix/PictureView.h"
#include "platform/screens/controls/SymbolButton.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <gtest/gtest.h>

namespace halcyonix {

namespace {

ModalConfig fullConfig() {
    return {.title = QStringLiteral("Quillet 3.1.8"),
            .imageName = QStringLiteral("square"),
            .systemImageName = QStringLiteral("app.badge.fill"),
            .body = QStringLiteral("One.\n\nTwo."),
            .items = {{.imageName = QStringLiteral("square"), .body = QStringLiteral("Faster")},
                      {.imageName = {}, .body = QStringLiteral("Smaller")}},
            .buttonConfig = ModalButtonConfig{.text = QStringLiteral("Get Coding")},
            .position = ModalPosition::Middle};
}

class Delegate : public ModalViewControllerDelegate {
public:
    void didPressButton(ModalViewController& modal) override {
        presses++;
        wasUp = modal.presentingViewController() && modal.isVisible();
    }

    int presses = 0;
    bool wasUp = false;
};

class ModalViewControllerTest : public ::testing::Test {
protected:
    ModalViewController& present(ModalConfig config, QSize window = {1280, 800}) {
        QApplication::setEffectEnabled(Qt::UI_General, false);
        root.resize(window);
        root.show();
        auto owned = std::make_unique<ModalViewController>(std::move(config));
        owned->delegate = &delegate;
        m_modal = owned.get();
        root.present(std::move(owned));
        QCoreApplication::processEvents();
        return *m_modal;
    }

    bool isGone() {
        return QTest::qWaitFor([this] { return m_modal.isNull(); });
    }

    platform::ViewController root;
    Delegate delegate;
    QPointer<ModalViewController> m_modal;
};

} // namespace

TEST_F(ModalViewControllerTest, ShowsAllThatItIsGiven) {
    auto& modal = present(fullConfig());
    EXPECT_EQ(modal.titleLabel().text(), QStringLiteral("Quillet 3.1.8"));
    EXPECT_EQ(modal.bodyLabel().text(), QStringLiteral("One.\n\nTwo."));
    EXPECT_TRUE(modal.imageView().isVisible());
    EXPECT_EQ(modal.button().text(), QStringLiteral("Get Coding"));
    EXPECT_DOUBLE_EQ(modal.backgroundView().alpha(), 0.5);
    QStringList labels;
    for (const auto* label : modal.findChildren<QLabel*>())
        if (label->isVisible()) labels << label->text();
    EXPECT_TRUE(labels.contains(QStringLiteral("Faster")) && labels.contains(QStringLiteral("Smaller")));
    // The program's own image goes before the symbol.
    const QColor middle = modal.imageView().grab().toImage().pixelColor(modal.imageView().rect().center());
    EXPECT_EQ(middle, QColor(Qt::red));
}

TEST_F(ModalViewControllerTest, HidesWhatItIsNotGiven) {
    auto& modal = present({.title = QStringLiteral("Only this")});
    EXPECT_TRUE(modal.titleLabel().isVisible());
    EXPECT_FALSE(modal.bodyLabel().isVisible());
    EXPECT_FALSE(modal.imageView().isVisible());
    EXPECT_FALSE(modal.button().isVisible());
    EXPECT_TRUE(modal.closeButton().isVisible());
}

TEST_F(ModalViewControllerTest, FallsBackToTheSymbolInTheAccentColour) {
    ModalConfig config = fullConfig();
    config.imageName.reset();
    config.accentColor = platform::Asset::SystemRed;
    auto& modal = present(config);
    const QImage picture = modal.imageView().grab().toImage();
    bool isTinted = false;
    for (int x = 0; x < picture.width(); x++)
        isTinted |=
            picture.pixelColor(x, picture.height() / 2) == platform::color(platform::Asset::SystemRed);
    EXPECT_TRUE(isTinted);
}

TEST_F(ModalViewControllerTest, StandsInTheMiddleOrAtTheBottom) {
    auto& middle = present(fullConfig());
    EXPECT_NEAR(middle.modalContainer().geometry().center().y(), 400, 1);
    EXPECT_NEAR(middle.modalContainer().geometry().center().x(), 640, 1);
    middle.dismiss();
    ASSERT_TRUE(isGone());
    ModalConfig config = fullConfig();
    config.position = ModalPosition::Bottom;
    auto& bottom = present(config, {390, 844});
    EXPECT_EQ(bottom.modalContainer().geometry().bottom(), 844 - 1 - 20);
    EXPECT_EQ(bottom.modalContainer().width(), 350);
}

TEST_F(ModalViewControllerTest, TellsTheDelegateBeforeItGoes) {
    auto& modal = present(fullConfig());
    QTest::mouseClick(&modal.button(), Qt::LeftButton);
    EXPECT_EQ(delegate.presses, 1);
    EXPECT_TRUE(delegate.wasUp);
    EXPECT_TRUE(isGone());
}

TEST_F(ModalViewControllerTest, GoesByMarkGrayAndEscapeWithoutTheDelegate) {
    QTest::mouseClick(&present(fullConfig()).closeButton(), Qt::LeftButton);
    EXPECT_TRUE(isGone());
    QTest::mouseClick(&present(fullConfig()).backgroundView(), Qt::LeftButton, {}, {10, 10});
    EXPECT_TRUE(isGone());
    QTest::keyClick(&present(fullConfig()).button(), Qt::Key_Escape);
    EXPECT_TRUE(isGone());
    EXPECT_EQ(delegate.presses, 0);
}

TEST_F(ModalViewControllerTest, ScrollsATextThatTheWindowDoesNotHold) {
    ModalConfig config = fullConfig();
    config.body = QStringLiteral("A line.\n").repeated(100);
    auto& modal = present(config, {390, 500});
    EXPECT_EQ(modal.modalContainer().height(), 460);
    EXPECT_GT(modal.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    const QRect button(modal.button().mapTo(&modal, QPoint()), modal.button().size());
    EXPECT_TRUE(modal.rect().contains(button)) << "the button stays in reach";
}

} // namespace halcyonix
