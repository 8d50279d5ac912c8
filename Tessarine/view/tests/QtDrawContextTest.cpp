#include "Tessarine/view/QtDrawContext.h"

#include "Tessarine/layout/DrawStateScope.h"
#include "Tessarine/view/tests/SampleRows.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <gtest/gtest.h>

using namespace tessarine;

namespace {

constexpr Color red(RGBAColor::ofHex(0xFF0000));
constexpr Color blueOrGreen(RGBAColor::ofHex(0x0000FF), RGBAColor::ofHex(0x00FF00));

struct QtDrawContextTest : ::testing::Test {
    QtDrawContextTest() { image.fill(Qt::transparent); }

    using Channel = int (*)(QRgb);

    // The strongest of one channel within columns.
    int strongest(Channel channel, double minX, double maxX) const {
        int found = 0;
        for (int x = static_cast<int>(minX); x < static_cast<int>(maxX); ++x)
            for (int y = 0; y < image.height(); ++y)
                found = std::max(found, channel(image.pixel(x, y)));
        return found;
    }

    QImage image{200, 40, QImage::Format_ARGB32_Premultiplied};
    QPainter painter{&image};
    QtDrawContext context{painter, UserInterfaceStyle::Dark};
};

TEST_F(QtDrawContextTest, ADrawnRowHasTheColorsOfItsRuns) {
    const auto string = sampleString(u"MMMMMMMM");
    string->addAttributes({.foregroundColor = red}, {0, 4});
    string->addAttributes({.foregroundColor = blueOrGreen}, {4, 4});
    const auto row = sampleRow(string);
    const double middle = row->offsetForStringIndex(4);
    for (const auto style : {UserInterfaceStyle::Light, UserInterfaceStyle::Dark}) {
        image.fill(Qt::transparent);
        QtDrawContext(painter, style).drawLine(*row, {0, 20});
        Channel shown = qGreen;
        Channel notShown = qBlue;
        if (style == UserInterfaceStyle::Light) std::swap(shown, notShown);
        EXPECT_GT(strongest(qRed, 0, middle), 200);
        EXPECT_EQ(strongest(qGreen, 0, middle - 1) + strongest(qBlue, 0, middle - 1), 0);
        EXPECT_GT(strongest(shown, middle + 1, 200), 200);
        EXPECT_EQ(strongest(notShown, middle + 1, 200), 0);
        EXPECT_EQ(strongest(qAlpha, row->typographicBounds().width + 1, 200), 0);
    }
}

TEST_F(QtDrawContextTest, ARowStandsOnItsBaseline) {
    context.drawLine(*sampleRow(u"HHH"), {0, 20});
    EXPECT_GT(qAlpha(image.pixel(2, 19)), 0);
    EXPECT_EQ(qAlpha(image.pixel(2, 20)), 0);
}

TEST_F(QtDrawContextTest, ARunThrowsItsShadow) {
    const auto string = sampleString(u"MM");
    string->addAttributes({.foregroundColor = red, .shadow = Shadow{blueOrGreen, 100, 0, 0}}, {1, 1});
    context.drawLine(*sampleRow(string), {0, 20});
    EXPECT_GT(strongest(qGreen, 100, 200), 100);
    EXPECT_EQ(strongest(qRed, 100, 200), 0);
    EXPECT_EQ(strongest(qGreen, 0, 100), 0);
    EXPECT_EQ(strongest(qAlpha, 100, 107), 0);
}

TEST_F(QtDrawContextTest, ARowOutlivesItsMakersAndManyOthers) {
    const auto shaper = std::make_unique<QtTextShaper>();
    const auto first = shaper->createTypesetter(sampleString(u"first"))->createLine({0, 5});
    std::vector<std::shared_ptr<const TextLine>> others;
    for (int i = 0; i < 100; ++i)
        others.push_back(
            shaper->createTypesetter(sampleString(std::u16string(1'000, u'x')))->createLine({0, 1'000}));
    const double end = first->offsetForStringIndex(5);
    EXPECT_NEAR(end, first->typographicBounds().width, 0.01);
    context.drawLine(*first, {0, 20});
    EXPECT_GT(strongest(qAlpha, 0, end), 200);
}

TEST_F(QtDrawContextTest, FillsWithTheColorOfItsState) {
    context.setFillColor(red);
    {
        const DrawStateScope scope(context);
        context.setFillColor(blueOrGreen);
        context.fillRect({0, 0, 10, 10});
    }
    context.fillRect({20, 0, 10, 10});
    context.fillRoundedRect({40, 0, 20, 20}, 8);
    context.fillRoundedRect({100, 0, -20, 20}, 8);
    EXPECT_EQ(image.pixel(5, 5), qRgb(0, 255, 0));
    EXPECT_EQ(image.pixel(25, 5), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(50, 10), qRgb(255, 0, 0));
    EXPECT_EQ(qAlpha(image.pixel(40, 0)), 0);
    EXPECT_EQ(qAlpha(image.pixel(30, 5)), 0);
    EXPECT_EQ(image.copy(80, 0, 20, 20), image.copy(40, 0, 20, 20));
}

TEST_F(QtDrawContextTest, WritesTextFromTheTopLeftCorner) {
    context.drawText(u"M", sampleFont, red, {50, 10, 20, 20});
    EXPECT_EQ(strongest(qAlpha, 0, 50), 0);
    EXPECT_GT(strongest(qRed, 50, 60), 200);
    for (int x = 50; x < 60; ++x)
        EXPECT_EQ(qAlpha(image.pixel(x, 10)) + qAlpha(image.pixel(x, 27)), 0);
}

using QtDrawContextDeathTest = QtDrawContextTest;

TEST_F(QtDrawContextDeathTest, StopsAtAStateThatWasNotSaved) {
    EXPECT_DEATH(context.restoreState(), "A state is restored that was not saved.");
}

} // namespace
