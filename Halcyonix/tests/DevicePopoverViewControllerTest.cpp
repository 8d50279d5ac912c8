#include "Halcyonix/DevicePopoverViewController.h"

#include "Halcyonix/BlurView.h"
#include "Halcyonix/PictureView.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <gtest/gtest.h>

namespace halcyonix {

TEST(DevicePopoverViewController, FloatsOverTheBlurredWindow) {
    QApplication::setEffectEnabled(Qt::UI_General, false);
    platform::ViewController root;
    QWidget left(&root);
    left.setGeometry(0, 0, 400, 600);
    left.setAutoFillBackground(true);
    left.setPalette(QColor(Qt::black));
    root.setPalette(QColor(Qt::white));
    root.resize(800, 600);
    root.show();
    auto owned = std::make_unique<DevicePopoverViewController>(
        DevicePopoverConfig{QStringLiteral("square"), QStringLiteral("Tablet"), QStringLiteral("In reach")});
    QPointer popover = owned.get();
    root.present(std::move(owned));
    QCoreApplication::processEvents();
    EXPECT_EQ(popover->titleLabel().text(), QStringLiteral("Tablet"));
    EXPECT_EQ(popover->subtitleLabel().text(), QStringLiteral("In reach"));
    EXPECT_EQ(popover->imageView().size(), QSize(128, 128));
    EXPECT_NEAR(popover->floatingView().geometry().center().x(), 400, 1);
    // The edge in the window runs into a gray.
    const QImage picture = popover->blurView().grab().toImage();
    EXPECT_EQ(picture.pixelColor(100, 20).lightness(), 0);
    EXPECT_NEAR(picture.pixelColor(400, 20).lightness(), 128, 64);
    QTest::mouseClick(&popover->blurView(), Qt::LeftButton, {}, {10, 10});
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull(); }));
}

} // namespace halcyonix
