#include "Tessarine/theme/tests/Contrast.h"
#include "themes/onedark/OneDarkTheme.h"
#include "themes/plaintext/PlainTextTheme.h"
#include "themes/tomorrow/TomorrowTheme.h"
#include "themes/tomorrownight/TomorrowNightTheme.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace tessarine;
using namespace tessarine::themes;

namespace {

template <class Theme>
class ThemeContrast : public ::testing::Test {
protected:
    RGBAColor value(const Color& color) const { return color.resolved(theme.userInterfaceStyle()); }

    RGBAColor over(const Color& color, RGBAColor background) const {
        return painted(value(color), background);
    }

    std::vector<Color> textColors() const {
        std::vector<Color> colors{theme.textColor()};
        for (const HighlightName name : allHighlightNames)
            if (const auto color = theme.textColor(rawValue(name))) colors.push_back(*color);
        return colors;
    }

    // What text may stand on, marked or not.
    std::vector<RGBAColor> pages() const {
        std::vector<RGBAColor> pages{page, over(theme.selectedLineBackgroundColor(), page),
                                     over(theme.pageGuideBackgroundColor(), page)};
        for (std::size_t i = 0; i < 3; ++i)
            pages.push_back(over(theme.markedTextBackgroundColor(), pages[i]));
        return pages;
    }

    const Theme theme;
    const RGBAColor page = value(theme.backgroundColor());
    const RGBAColor gutter = over(theme.gutterBackgroundColor(), page);
    const RGBAColor selectedGutter = over(theme.selectedLinesGutterBackgroundColor(), gutter);
};

using AllThemes = ::testing::Types<OneDarkTheme, TomorrowTheme, TomorrowNightTheme, PlainTextTheme>;
TYPED_TEST_SUITE(ThemeContrast, AllThemes);

TYPED_TEST(ThemeContrast, IsEnoughForText) {
    for (const RGBAColor background : this->pages()) {
        for (const Color& color : this->textColors())
            EXPECT_GE(contrast(this->value(color), background), leastTextContrast);
        EXPECT_GE(contrast(this->value(this->theme.invisibleCharactersColor()), background),
                  leastOtherContrast);
    }
}

// On white not even black is text any more at half its alpha, which line numbers have.
TYPED_TEST(ThemeContrast, IsEnoughForTheGutter) {
    const bool isDark = this->theme.userInterfaceStyle() == UserInterfaceStyle::Dark;
    for (const RGBAColor background : {this->gutter, this->selectedGutter})
        EXPECT_GE(contrast(this->value(this->theme.lineNumberColor()), background),
                  isDark ? leastTextContrast : leastOtherContrast);
    EXPECT_GE(contrast(this->value(this->theme.selectedLinesLineNumberColor()), this->selectedGutter),
              leastTextContrast);
}

template <class Theme>
class HairlineContrast : public ThemeContrast<Theme> {};

using ThemesWithHairlines = ::testing::Types<OneDarkTheme, TomorrowTheme, TomorrowNightTheme>;
TYPED_TEST_SUITE(HairlineContrast, ThemesWithHairlines);

TYPED_TEST(HairlineContrast, IsEnough) {
    for (const RGBAColor background : {this->page, this->gutter})
        EXPECT_GE(contrast(this->value(this->theme.gutterHairlineColor()), background), leastOtherContrast);
    const RGBAColor guide = this->over(this->theme.pageGuideBackgroundColor(), this->page);
    for (const RGBAColor background : {this->page, guide})
        EXPECT_GE(contrast(this->value(this->theme.pageGuideHairlineColor()), background),
                  leastOtherContrast);
}

} // namespace
