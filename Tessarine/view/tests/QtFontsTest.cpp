#include "Tessarine/view/QtFonts.h"

#include "Tessarine/view/QtTextMeasurer.h"

#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <thread>
#include <vector>

using namespace tessarine;

namespace {

bool isFixedWidth(const Font& font) {
    const QtTextMeasurer measurer;
    return measurer.width(u"iiii", font) == measurer.width(u"MMMM", font);
}

TEST(QtFonts, SystemNamesStandForWhatTheHostUses) {
    EXPECT_TRUE(isFixedWidth(Font::monospacedSystem(14)));
    EXPECT_FALSE(isFixedWidth(Font::system(14)));
    EXPECT_EQ(qtFont(Font::system(14)).weight(), QFont::Normal);
}

TEST(QtFonts, AFixedWidthFamilyThatIsNotThereHasAFixedWidthRelative) {
    EXPECT_TRUE(isFixedWidth({"Menlo-Regular", 14}));
    EXPECT_TRUE(isFixedWidth({"Menlo-Bold", 14}));
    EXPECT_EQ(qtFont({"Menlo-Regular", 14}).weight(), QFont::Normal);
    EXPECT_EQ(qtFont({"Menlo-Bold", 14}).weight(), QFont::Bold);
    EXPECT_TRUE(QFontInfo(qtFont({"Menlo-BoldItalic", 14})).italic());
    EXPECT_GT(QtTextMeasurer().width(u"x", {"No Such Family-Regular", 14}), 0);
    EXPECT_GT(QtTextMeasurer().width(u"x", {"", 14}), 0);
}

TEST(QtFonts, TraitsComeOnTopOfTheName) {
    const Font both{"Menlo-Regular", 14, FontTraits::bold | FontTraits::italic};
    EXPECT_EQ(qtFont(both).weight(), QFont::Bold);
    EXPECT_TRUE(qtFont(both).italic());
    EXPECT_EQ(qtFont({"Menlo-Bold", 14, FontTraits::italic}).weight(), QFont::Bold);
    EXPECT_FALSE(qtFont(both.withTraits({})).italic());
}

TEST(QtFonts, APointIsADeviceIndependentPixel) {
    for (const double size : {1.0, 13.6, 14.0, 200.0})
        EXPECT_EQ(QFontInfo(qtFont({"Menlo-Regular", size})).pixelSize(), std::round(size));
    EXPECT_GT(QtTextMeasurer().width(u"m", {"Menlo-Regular", -1}), 0);
    EXPECT_GT(QtTextMeasurer().width(u"m", {"Menlo-Regular", 1e9}), 0);
}

TEST(QtTextMeasurer, MeasuresWhatThereIs) {
    const QtTextMeasurer measurer;
    const Font font = Font::monospacedSystem(14);
    EXPECT_EQ(measurer.width(u"", font), 0);
    EXPECT_NEAR(measurer.width(std::u16string(120, u'8'), font), 120 * measurer.width(u"8", font), 1e-6);
    EXPECT_GT(measurer.width(std::u16string(1, char16_t{0xD83D}), font), 0);
    const FontMetrics metrics = measurer.metrics(font);
    EXPECT_GT(metrics.ascender, 0);
    EXPECT_LT(metrics.descender, 0);
    EXPECT_GE(metrics.leading, 0);
    EXPECT_GT(measurer.metrics(Font::monospacedSystem(28)).lineHeight(), 1.5 * metrics.lineHeight());
}

TEST(QtTextMeasurer, MeasuresTheSameOnEveryThread) {
    const QtTextMeasurer measurer;
    const auto measure = [&](double size) {
        return measurer.width(u"for (;;)", {"Menlo-Regular", size}) +
               measurer.metrics({"Menlo-Bold", size}).lineHeight();
    };
    constexpr int sizes = 200; // more than a cache holds
    std::array<std::vector<double>, 3> measured;
    {
        std::vector<std::jthread> threads;
        for (auto& ofThread : measured)
            threads.emplace_back([&] {
                for (int size = 1; size <= sizes; ++size)
                    ofThread.push_back(measure(size));
            });
    }
    for (int size = 1; size <= sizes; ++size)
        for (const auto& ofThread : measured)
            EXPECT_EQ(ofThread.at(size - 1), measure(size)) << size;
}

} // namespace
