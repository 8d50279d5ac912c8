#include "themes/onedark/OneDarkTheme.h"
#include "themes/plaintext/PlainTextTheme.h"
#include "themes/tomorrow/TomorrowTheme.h"
#include "themes/tomorrownight/TomorrowNightTheme.h"

#include <gtest/gtest.h>

using namespace tessarine;
using namespace tessarine::themes;

namespace {

TEST(HighlightName, IsTheLongestStartOfACapturesName) {
    EXPECT_EQ(highlightName("string.special.regex"), HighlightName::String);
    EXPECT_EQ(highlightName("variable.builtin.self"), HighlightName::VariableBuiltin);
    for (const auto* none : {"", ".", "variable", "variable.parameter", "Comment", "comments", "builtin"})
        EXPECT_EQ(highlightName(none), std::nullopt) << none;
    for (const HighlightName name : allHighlightNames)
        EXPECT_EQ(highlightName(std::string(rawValue(name)) + ".more"), name);
}

TEST(ColorAssets, StopAtANameThatIsNotThere) {
    constexpr std::array table{ColorAsset{"One", 0x010203}};
    const ColorAssets assets(table);
    EXPECT_EQ(assets.named("One"), Color(RGBAColor{.red = 1, .green = 2, .blue = 3}));
    EXPECT_DEATH((void)assets.named("Two"), "Fatal error: unable to find color named Two");
}

class SampleTheme final : public AssetTheme {
public:
    SampleTheme()
        : AssetTheme(
              ColorAssets(table),
              {.prefix = "X", .userInterfaceStyle = UserInterfaceStyle::Dark, .numberColor = "Other"}) {}

private:
    static constexpr std::array table{
        ColorAsset{"XBackground", 0}, ColorAsset{"XForeground", 1}, ColorAsset{"XCurrentLine", 2},
        ColorAsset{"XComment", 3},    ColorAsset{"XBlue", 4},       ColorAsset{"XPurple", 5},
        ColorAsset{"XOther", 6},      ColorAsset{"XAqua", 7},       ColorAsset{"XGreen", 8},
        ColorAsset{"XRed", 9},
    };
};

TEST(AssetTheme, GivesEachKindOfCaptureItsColour) {
    const SampleTheme theme;
    const auto blueOf = [&](std::string_view name) {
        return theme.textColor(name).value().resolved(UserInterfaceStyle::Dark).blue;
    };
    EXPECT_EQ(blueOf("comment.line"), 3);
    EXPECT_EQ(blueOf("function"), 4);
    EXPECT_EQ(blueOf("keyword"), 5);
    EXPECT_EQ(blueOf("number"), 6);
    EXPECT_EQ(blueOf("property"), 7);
    EXPECT_EQ(blueOf("string"), 8);
    EXPECT_EQ(blueOf("variable.builtin"), 9);
    EXPECT_EQ(theme.textColor("operator"), theme.textColor().withAlpha(0.75F));
    EXPECT_EQ(theme.textColor("punctuation.special"), theme.textColor().withAlpha(0.75F));
    EXPECT_EQ(theme.textColor(""), std::nullopt);
    EXPECT_EQ(theme.textColor("variable.parameter"), std::nullopt);
}

void expectCaptures(const EditorTheme& theme) {
    EXPECT_EQ(theme.textColor("comment.line"), theme.gutterHairlineColor());
    for (const HighlightName name : allHighlightNames) {
        EXPECT_NE(theme.textColor(rawValue(name)), std::nullopt);
        EXPECT_EQ(theme.font(rawValue(name)), std::nullopt);
        EXPECT_TRUE(theme.fontTraits(rawValue(name)).isEmpty());
        EXPECT_EQ(theme.shadow(rawValue(name)), std::nullopt);
    }
}

void expectFurniture(const EditorTheme& theme) {
    const Color text = theme.textColor();
    EXPECT_EQ(theme.gutterBackgroundColor(), theme.selectedLineBackgroundColor());
    EXPECT_EQ(theme.pageGuideBackgroundColor(), theme.selectedLineBackgroundColor());
    EXPECT_EQ(theme.lineNumberColor(), text.withAlpha(0.5F));
    EXPECT_EQ(theme.selectedLinesLineNumberColor(), text);
    EXPECT_EQ(theme.selectedLinesGutterBackgroundColor().resolved(UserInterfaceStyle::Light).alpha, 0);
    EXPECT_EQ(theme.invisibleCharactersColor(), text.withAlpha(0.7F));
    EXPECT_EQ(theme.pageGuideHairlineColor(), text);
    EXPECT_EQ(theme.markedTextBackgroundColor(), text.withAlpha(0.1F));
}

void expectSizes(const EditorTheme& theme) {
    EXPECT_EQ(theme.font(), Font::monospacedSystem(14));
    EXPECT_EQ(theme.lineNumberFont(), Font::monospacedSystem(14));
    EXPECT_EQ(theme.gutterHairlineWidth(3), 1.0 / 3);
    EXPECT_EQ(theme.markedTextBackgroundCornerRadius(), 4);
}

TEST(AssetThemes, UseTheirColoursAlike) {
    const OneDarkTheme oneDark;
    const TomorrowTheme tomorrow;
    const TomorrowNightTheme tomorrowNight;
    for (const EditorTheme* theme :
         {static_cast<const EditorTheme*>(&oneDark), static_cast<const EditorTheme*>(&tomorrow),
          static_cast<const EditorTheme*>(&tomorrowNight)}) {
        expectCaptures(*theme);
        expectFurniture(*theme);
        expectSizes(*theme);
    }
    EXPECT_EQ(oneDark.userInterfaceStyle(), UserInterfaceStyle::Dark);
    EXPECT_EQ(tomorrow.userInterfaceStyle(), UserInterfaceStyle::Light);
    EXPECT_EQ(tomorrowNight.userInterfaceStyle(), UserInterfaceStyle::Dark);
}

TEST(PlainTextTheme, IsBlackOnWhite) {
    const PlainTextTheme theme;
    const Color black(RGBAColor::ofHex(0x000000));
    const Color white(RGBAColor::ofHex(0xFFFFFF));
    EXPECT_EQ(theme.backgroundColor(), white);
    EXPECT_EQ(theme.gutterBackgroundColor(), white);
    EXPECT_EQ(theme.gutterHairlineColor(), white);
    EXPECT_EQ(theme.textColor(), black);
    EXPECT_EQ(theme.selectedLinesLineNumberColor(), black);
    EXPECT_EQ(theme.lineNumberColor(), black.withAlpha(0.5F));
    EXPECT_EQ(theme.invisibleCharactersColor(), black.withAlpha(0.5F));
    EXPECT_EQ(theme.selectedLineBackgroundColor(), black.withAlpha(0.07F));
    EXPECT_EQ(theme.selectedLinesGutterBackgroundColor(), black.withAlpha(0.07F));
    EXPECT_EQ(theme.pageGuideHairlineColor(), black.withAlpha(0.1F));
    EXPECT_EQ(theme.markedTextBackgroundColor(), black.withAlpha(0.1F));
    EXPECT_EQ(theme.pageGuideBackgroundColor(), black.withAlpha(0.06F));
    EXPECT_EQ(theme.textColor("keyword"), std::nullopt);
    expectSizes(theme);
}

} // namespace
