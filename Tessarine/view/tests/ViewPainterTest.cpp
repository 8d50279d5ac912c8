#include "Tessarine/view/ViewPainter.h"

#include "Tessarine/layout/DrawContext.h"
#include "Tessarine/layout/ScrollView.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <gtest/gtest.h>

#include <vector>

using namespace tessarine;

namespace {

constexpr Color red(RGBAColor::ofHex(0xFF0000));

struct FillingView : View {
    explicit FillingView(const Rect& frame, const Rect& filledRect)
        : filled(filledRect) {
        setFrame(frame);
    }

    void draw(DrawContext& context) override {
        ++draws;
        context.setFillColor(red);
        context.fillRect(filled);
    }

    const Rect filled;
    int draws = 0;
};

struct ViewPainterTest : ::testing::Test {
    void paint(double scale) {
        image = QImage(QSize(100, 100) * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        ViewPainter(painter, QRegion(0, 0, 100, 100), pictures, UserInterfaceStyle::Light).paint(*root);
    }

    bool isPainted(int x, int y) const { return qAlpha(image.pixel(x, y)) > 127; }

    template <class V>
    std::shared_ptr<V> add(std::shared_ptr<V> view) {
        root->addSubview(view);
        return view;
    }

    QImage image;
    ViewPictures pictures;
    const std::shared_ptr<View> root = std::make_shared<View>();
};

TEST_F(ViewPainterTest, PicturesHaveTheScreensPixels) {
    const auto view = add(std::make_shared<FillingView>(Rect{10.3, 10, 20, 20}, Rect{0, 0, 0.5, 5}));
    paint(2);
    EXPECT_TRUE(isPainted(21, 20));
    EXPECT_FALSE(isPainted(20, 20));
    EXPECT_FALSE(isPainted(22, 20));
    EXPECT_TRUE(isPainted(21, 29));
    EXPECT_FALSE(isPainted(21, 30));
    paint(2);
    EXPECT_EQ(view->draws, 1);
    paint(1);
    EXPECT_EQ(view->draws, 2);
}

TEST_F(ViewPainterTest, ADrawingEndsAtTheViewsEdges) {
    const Rect beyond{-50, -50, 1'000, 1'000};
    for (const double width : {20.0, 6'000.0}) { // kept as a picture or not
        const auto view = add(std::make_shared<FillingView>(Rect{10, 10, width, 60}, beyond));
        paint(1);
        EXPECT_TRUE(isPainted(10, 10));
        EXPECT_TRUE(isPainted(29, 69));
        EXPECT_FALSE(isPainted(29, 70));
        EXPECT_FALSE(isPainted(9, 10));
        EXPECT_EQ(isPainted(99, 50), width > 100);
        view->removeFromSuperview();
    }
}

TEST_F(ViewPainterTest, OnlyViewsThatScrollCutTheirSubviews) {
    for (const bool scrolls : {false, true}) {
        const auto outer = scrolls ? std::make_shared<ScrollView>() : std::make_shared<View>();
        outer->setFrame({0, 0, 20, 20});
        outer->addSubview(std::make_shared<FillingView>(Rect{10, 10, 30, 30}, Rect{0, 0, 30, 30}));
        add(outer);
        paint(1);
        EXPECT_TRUE(isPainted(15, 15));
        EXPECT_EQ(isPainted(30, 30), !scrolls);
        outer->removeFromSuperview();
    }
}

TEST_F(ViewPainterTest, RoundsTheMaskedCornersOfABackground) {
    const auto view = add(std::make_shared<View>());
    view->setFrame({10, 10, 40, 40});
    view->setBackgroundColor(red);
    view->setCornerRadius(10);
    view->setMaskedCorners({.topRight = false, .bottomLeft = false});
    paint(1);
    EXPECT_FALSE(isPainted(10, 10));
    EXPECT_TRUE(isPainted(49, 10));
    EXPECT_TRUE(isPainted(10, 49));
    EXPECT_FALSE(isPainted(49, 49));
    EXPECT_TRUE(isPainted(30, 30));
    view->setCornerRadius(0);
    view->setFrame({10.4, 10, 0.3, 40}); // a line stays one pixel wide
    paint(1);
    EXPECT_TRUE(isPainted(10, 10));
    EXPECT_FALSE(isPainted(11, 10));
}

TEST_F(ViewPainterTest, KeepsPicturesWithinABound) {
    std::vector<std::shared_ptr<FillingView>> views;
    for (int i = 0; i < 200; ++i)
        views.push_back(add(std::make_shared<FillingView>(Rect{0, 0, 500, 500}, Rect{0, 0, 1, 1})));
    paint(1);
    paint(1); // more than the cache holds: each is drawn again
    EXPECT_EQ(views.front()->draws, 2);
    for (int i = 0; i < 150; ++i)
        views[i]->removeFromSuperview();
    paint(1);
    EXPECT_EQ(views.back()->draws, 2);
}

} // namespace
