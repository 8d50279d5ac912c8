#include "Tessarine/syntax/highlighting/PlainTextSyntaxHighlighter.h"
#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlightToken.h"
#include "Tessarine/syntax/highlighting/tests/SampleTheme.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

using Token = TreeSitterSyntaxHighlightToken;

constexpr Color red(RGBAColor::ofHex(0xFF0000));
constexpr Color blue(RGBAColor::ofHex(0x0000FF));
const Font plain{"Menlo-Regular", 14, {}};
const Font large{"Menlo-Regular", 20, {}};

TEST(HighlightTokens, AreCutToTheLine) {
    SampleTheme theme;
    theme.looks["a"].textColor = red;
    const auto rangeOf = [&](const ByteRange& capture) -> std::optional<TextRange> {
        const std::vector<HighlightCapture> captures{{.byteRange = capture, .name = "a"}};
        const auto tokens = highlightTokens(captures, {20, 10}, theme);
        return tokens.empty() ? std::nullopt : std::optional(tokens.front().range);
    };
    EXPECT_EQ(rangeOf({0, 100}), (TextRange{0, 5}));
    EXPECT_EQ(rangeOf({20, 10}), (TextRange{0, 5}));
    EXPECT_EQ(rangeOf({16, 6}), (TextRange{0, 1}));
    EXPECT_EQ(rangeOf({24, 4}), (TextRange{2, 2}));
    EXPECT_EQ(rangeOf({28, 8}), (TextRange{4, 1}));
    for (const ByteRange& beside : {ByteRange{10, 10}, ByteRange{30, 4}, ByteRange{0, 4}, ByteRange{40, 4}})
        EXPECT_EQ(rangeOf(beside), std::nullopt) << beside.description();
}

TEST(HighlightTokens, HaveAllThatTheThemeSaysUnlessItIsTraitsAlone) {
    SampleTheme theme;
    const Shadow shadow{.color = blue};
    theme.looks["all"] = {
        .textColor = red, .shadow = shadow, .font = large, .fontTraits = FontTraits::italic};
    theme.looks["shadow"].shadow = shadow;
    theme.looks["font"].font = large;
    theme.looks["traits"].fontTraits = FontTraits::bold;
    std::vector<HighlightCapture> captures;
    for (const auto* name : {"traits", "nothing", "all", "shadow", "font"})
        captures.push_back({.byteRange = {0, 4}, .name = name});
    const TextRange range{0, 2};
    EXPECT_EQ(highlightTokens(captures, {0, 8}, theme),
              (std::vector<Token>{{.range = range,
                                   .textColor = red,
                                   .shadow = shadow,
                                   .font = large,
                                   .fontTraits = FontTraits::italic},
                                  {.range = range, .shadow = shadow},
                                  {.range = range, .font = large}}));
}

TextAttributes attributesAt(const AttributedString& string, std::int64_t location) {
    return string.runAt(location).attributes;
}

TEST(ApplyTokens, GathersTraitsWhereATokenBegins) {
    AttributedString string(u"0123456789");
    string.setAttributes({.font = plain}, {0, 10});
    const std::vector<Token> tokens{
        {.range = {0, 6}, .textColor = red, .fontTraits = FontTraits::bold},
        {.range = {2, 2}, .textColor = blue, .font = large, .fontTraits = FontTraits::italic},
        {.range = {5, 3}, .textColor = blue},
        {.range = {8, 2}, .textColor = blue},
    };
    applyTokens(tokens, plain, string);
    const TextAttributes bold{
        .foregroundColor = red, .font = plain.withTraits(FontTraits::bold), .isBold = true};
    EXPECT_EQ(attributesAt(string, 0), bold);
    EXPECT_EQ(attributesAt(string, 4), bold);
    EXPECT_EQ(attributesAt(string, 2),
              (TextAttributes{.foregroundColor = blue,
                              .font = large.withTraits(FontTraits::bold | FontTraits::italic),
                              .isBold = true,
                              .isItalic = true}));
    // The font is settled at 5, where there was the trait and already the font.
    EXPECT_EQ(attributesAt(string, 5).font, plain.withTraits(FontTraits::bold));
    EXPECT_EQ(attributesAt(string, 6).font, plain);
    EXPECT_FALSE(attributesAt(string, 6).isBold);
    EXPECT_EQ(attributesAt(string, 8), (TextAttributes{.foregroundColor = blue, .font = plain}));
}

TEST(ApplyTokens, GoesBackToTheDefaultFontInsideOfAnother) {
    AttributedString string(u"abc");
    const std::vector<Token> tokens{{.range = {0, 3}, .font = large},
                                    {.range = {1, 1}, .shadow = Shadow{.color = red}}};
    applyTokens(tokens, plain, string);
    EXPECT_EQ(attributesAt(string, 0), (TextAttributes{.font = large}));
    EXPECT_EQ(attributesAt(string, 1), (TextAttributes{.font = plain, .shadow = Shadow{.color = red}}));
    EXPECT_EQ(attributesAt(string, 2), attributesAt(string, 0));
}

TEST(PlainTextSyntaxHighlighter, SetsTheDefaultAttributesAndNoOthers) {
    PlainTextSyntaxHighlighter highlighter;
    const auto theme = std::make_shared<SampleTheme>();
    highlighter.setTheme(theme);
    highlighter.setKern(1.5);
    const auto string = std::make_shared<AttributedString>(u"abc");
    string->addAttributes({.shadow = Shadow{.color = red}, .isBold = true, .isItalic = true}, {1, 2});
    highlighter.setDefaultAttributes(*string);
    const AttributedString expected = *string;
    EXPECT_EQ(string->runAt(1).range, (TextRange{0, 3}));
    EXPECT_EQ(attributesAt(*string, 1),
              (TextAttributes{.foregroundColor = theme->textColor(), .font = theme->font(), .kern = 1.5}));
    bool isDone = false;
    highlighter.syntaxHighlight({.attributedString = string, .byteRange = {0, 6}});
    highlighter.syntaxHighlight({.attributedString = string, .byteRange = {0, 6}},
                                [&](const auto& result) { isDone = result.has_value(); });
    EXPECT_TRUE(isDone);
    EXPECT_EQ(*string, expected);
    EXPECT_FALSE(highlighter.canHighlight());
}

} // namespace
