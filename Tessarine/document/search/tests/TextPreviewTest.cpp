#include "Tessarine/document/search/TextPreview.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

std::optional<TextPreview> preview(std::u16string_view text, TextRange needle, std::int64_t peekLength) {
    const auto stringView = std::make_shared<StringView>(text);
    LineManager lines(stringView);
    lines.rebuild();
    return textPreview(lines, needle, peekLength);
}

TEST(TextPreview, StaysWithinTheLinesOfTheMatch) {
    EXPECT_EQ(preview(u"ab\ncdef\r\ngh", {5, 1}, 50), (TextPreview{{5, 1}, {3, 4}, {2, 1}}));
    EXPECT_EQ(preview(u"ab\ncdef\r\ngh", {1, 4}, 50), (TextPreview{{1, 4}, {0, 7}, {1, 4}}));
}

TEST(TextPreview, PeeksAheadAndPastTwiceTheLocation) {
    const std::u16string line(100, u'x');
    EXPECT_EQ(preview(line, {20, 3}, 5), (TextPreview{{20, 3}, {15, 30}, {5, 3}}));
    EXPECT_EQ(preview(line, {0, 30}, 5), (TextPreview{{0, 30}, {0, 5}, {0, 5}}));
    EXPECT_EQ(preview(line, {90, 10}, 5), (TextPreview{{90, 10}, {85, 15}, {5, 10}}));
}

TEST(TextPreview, ThereIsNoneOutsideOfTheDocument) {
    EXPECT_EQ(preview(u"ab", {3, 1}, 5), std::nullopt);
    EXPECT_EQ(preview(u"", {0, 0}, 5), (TextPreview{{0, 0}, {0, 0}, {0, 0}}));
    EXPECT_EQ(preview(u"ab\r\n", {3, 0}, 5), (TextPreview{{3, 0}, {0, 2}, {3, 0}})); // inside of the break
}

} // namespace
