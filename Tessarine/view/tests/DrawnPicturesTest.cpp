// What the engine draws, compared with pictures that people have looked at.

#include "Tessarine/view/gallery/GalleryPage.h"
#include "Tessarine/view/gallery/PaintedView.h"
#include "Tessarine/view/tests/PictureComparison.h"
#include "Tessarine/view/tests/PictureTheme.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QPainter>

using namespace tessarine;

namespace {

constexpr auto light = UserInterfaceStyle::Light;
constexpr auto dark = UserInterfaceStyle::Dark;

const GallerySample cSample{.language = "c",
                            .text = u"static int x;\n"
                                    u"\tfor (;;) run(\"one two three\");\n"
                                    u"int longer = first + 42;\n"
                                    u"return;\n",
                            .selected = u"= first",
                            .marked = u"run",
                            .highlighted = {u"int", u"one two three"},
                            .guideColumn = 22};

const GallerySample arabicSample{.language = "",
                                 .text = u"ab \u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644 c\n"
                                         u"\u0645\u0631\u062D\u0628\u0627 abc \u0628\u0627\u0644\n"
                                         u"a\u00A0b\tc\n",
                                 .selected = u"b\tc",
                                 .marked = u"abc",
                                 .highlighted = {u"\u0628\u0627\u0644 c"},
                                 .guideColumn = 40};

struct DrawnPicturesTest : ::testing::Test {
    void SetUp() override {
        ASSERT_TRUE(QFontDatabase::hasFamily(QStringLiteral("DejaVu Sans Mono")))
            << "the pictures are set in it";
    }

    QImage drawn(const GallerySample& sample, Size size, UserInterfaceStyle style, double scale = 1) const {
        return paintedView(*GalleryPage::create(sample, theme, size)->view(), scale, style);
    }

    const std::shared_ptr<const Theme> theme = std::make_shared<PictureTheme>();
};

TEST_F(DrawnPicturesTest, SourceWithAllThatSurroundsIt) {
    EXPECT_TRUE(isPicture(drawn(cSample, {230, 110}, light), QStringLiteral("source-light")));
    EXPECT_TRUE(isPicture(drawn(cSample, {230, 110}, dark), QStringLiteral("source-dark")));
    EXPECT_TRUE(isPicture(drawn(cSample, {150, 60}, light, 2), QStringLiteral("source-fine-screen")));
}

TEST_F(DrawnPicturesTest, TextThatRunsFromRightToLeft) {
    EXPECT_TRUE(isPicture(drawn(arabicSample, {200, 70}, light), QStringLiteral("right-to-left")));
}

TEST_F(DrawnPicturesTest, EveryMaskOfRoundCorners) {
    const auto sheet = std::make_shared<View>();
    sheet->setFrame({.width = 128, .height = 128});
    for (int mask = 0; mask < 16; ++mask) {
        const auto square = std::make_shared<View>();
        square->setFrame({.x = mask % 4 * 32.0 + 4, .y = mask / 4 * 32.0 + 4, .width = 24, .height = 24});
        square->setBackgroundColor(Color(RGBAColor::ofHex(0x2040C0)));
        square->setCornerRadius(10);
        square->setMaskedCorners({.topLeft = (mask & 1) != 0,
                                  .topRight = (mask & 2) != 0,
                                  .bottomLeft = (mask & 4) != 0,
                                  .bottomRight = (mask & 8) != 0});
        sheet->addSubview(square);
    }
    EXPECT_TRUE(isPicture(paintedView(*sheet, 1, light), QStringLiteral("corner-masks")));
}

// What has to be noticed: another colour, a row or a hairline beside its place.
TEST_F(DrawnPicturesTest, AComparisonNoticesWhatIsWrong) {
    const QImage right = drawn(cSample, {230, 110}, light);
    EXPECT_EQ(differingPixels(right, right), 0);
    EXPECT_GT(differingPixels(right, drawn(cSample, {230, 110}, dark)), 10'000);
    GallerySample wrong = cSample;
    wrong.guideColumn = 23;
    EXPECT_GT(differingPixels(right, drawn(wrong, {230, 110}, light)), 50);
    for (const QPoint step : {QPoint(1, 0), QPoint(0, 1)}) {
        QImage moved = right;
        QPainter(&moved).drawImage(step, right);
        EXPECT_GT(differingPixels(right, moved), 100);
    }
    wrong = cSample;
    wrong.highlighted.pop_back();
    EXPECT_GT(differingPixels(right, drawn(wrong, {230, 110}, light)), 500);
}

} // namespace
