#include "Tessarine/theme/DefaultTheme.h"

#include "Tessarine/theme/tests/Contrast.h"

#include <gtest/gtest.h>

#include <vector>

using namespace tessarine;

namespace {

TEST(DefaultTheme, KnowsACaptureByTheLongestStartOfItsName) {
    const DefaultTheme theme;
    EXPECT_EQ(theme.textColor("constant.builtin.boolean"), semanticColors::systemRed);
    EXPECT_EQ(theme.textColor("constant.numeric"), semanticColors::systemOrange);
    EXPECT_EQ(theme.textColor("punctuation.bracket"), semanticColors::secondaryLabel);
    EXPECT_EQ(theme.textColor("punctuation.delimiter.x.y"), semanticColors::secondaryLabel);
    for (const auto* name : {"", ".", "punctuation", "punctuation.special", "function", "strings", "String"})
        EXPECT_EQ(theme.textColor(name), std::nullopt) << name;
}

TEST(DefaultTheme, HasAFontOfItsOwnForKeywordsAlone) {
    const DefaultTheme theme;
    EXPECT_EQ(theme.font("keyword.control"), (Font{"Menlo-Bold", 14, {}}));
    EXPECT_EQ(theme.font("string"), std::nullopt);
    EXPECT_EQ(theme.font(), (Font{"Menlo-Regular", 14, {}}));
    EXPECT_TRUE(theme.fontTraits("keyword").isEmpty());
    EXPECT_EQ(theme.shadow("keyword"), std::nullopt);
    EXPECT_EQ(theme.gutterHairlineWidth(2), 0.5);
    EXPECT_EQ(theme.markedTextBackgroundCornerRadius(), 0);
}

class DefaultThemeContrast : public ::testing::TestWithParam<UserInterfaceStyle> {
protected:
    RGBAColor value(const Color& color) const { return color.resolved(GetParam()); }

    RGBAColor over(const Color& color, RGBAColor background) const {
        return painted(value(color), background);
    }

    const DefaultTheme theme;
    const RGBAColor page = value(semanticColors::systemBackground);
    const RGBAColor gutter = value(theme.gutterBackgroundColor());
};

TEST_P(DefaultThemeContrast, IsEnoughForText) {
    std::vector<RGBAColor> backgrounds{page, over(theme.selectedLineBackgroundColor(), page),
                                       over(theme.pageGuideBackgroundColor(), page)};
    for (std::size_t i = 0; i < 3; ++i)
        backgrounds.push_back(over(theme.markedTextBackgroundColor(), backgrounds[i]));
    for (const RGBAColor background : backgrounds) {
        EXPECT_GE(contrast(value(theme.textColor()), background), leastTextContrast);
        EXPECT_GE(contrast(value(theme.invisibleCharactersColor()), background), leastOtherContrast);
        for (const auto* name : {"operator", "keyword", "variable", "string", "comment", "number", "constant",
                                 "constant.builtin", "property", "punctuation.bracket"})
            EXPECT_GE(contrast(value(theme.textColor(name).value()), background), leastTextContrast) << name;
    }
}

TEST_P(DefaultThemeContrast, IsEnoughForTheGutterAndTheGuide) {
    EXPECT_GE(contrast(value(theme.lineNumberColor()), gutter), leastTextContrast);
    EXPECT_GE(contrast(value(theme.selectedLinesLineNumberColor()),
                       over(theme.selectedLinesGutterBackgroundColor(), gutter)),
              leastTextContrast);
    for (const RGBAColor background : {page, gutter})
        EXPECT_GE(contrast(value(theme.gutterHairlineColor()), background), leastOtherContrast);
    for (const RGBAColor background : {page, value(theme.pageGuideBackgroundColor())})
        EXPECT_GE(contrast(value(theme.pageGuideHairlineColor()), background), leastOtherContrast);
}

INSTANTIATE_TEST_SUITE_P(Styles, DefaultThemeContrast,
                         ::testing::Values(UserInterfaceStyle::Light, UserInterfaceStyle::Dark));

} // namespace
