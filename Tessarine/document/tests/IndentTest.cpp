#include "Tessarine/document/DetectedIndentStrategy.h"
#include "Tessarine/document/IndentLevelMeasurer.h"
#include "Tessarine/document/IndentStrategy.h"
#include "Tessarine/document/StringView.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

TEST(IndentStrategy, WritesIndents) {
    EXPECT_EQ(IndentStrategy::tab(4).string(2), u"\t\t");
    EXPECT_EQ(IndentStrategy::tab(4).tabLength(), 1);
    EXPECT_EQ(IndentStrategy::space(3).string(2), u"      ");
    EXPECT_EQ(IndentStrategy::space(3).tabLength(), 3);
    EXPECT_EQ(IndentStrategy::space(3).string(0), u"");
    EXPECT_NE(IndentStrategy::tab(3), IndentStrategy::space(3));
    EXPECT_NE(DetectedIndentStrategy::space(2), DetectedIndentStrategy::space(4));
    EXPECT_NE(DetectedIndentStrategy::tab(), DetectedIndentStrategy::unknown());
}

TEST(IndentLevelMeasurer, CountsWholeIndents) {
    const auto level = [](std::u16string_view text, std::int64_t location = 0, std::int64_t length = 99) {
        const StringView stringView(text);
        return IndentLevelMeasurer(stringView).indentLevel(location, length, 4);
    };
    EXPECT_EQ(level(u"   x"), 0);
    EXPECT_EQ(level(u" \tx"), 1);
    EXPECT_EQ(level(u"\t   \t x"), 2);
    EXPECT_EQ(level(u"\t\t"), 2); // ends with the text
    EXPECT_EQ(level(u"x\t"), 0);
    EXPECT_EQ(level(u"x\t\t\t", 1, 2), 2);
    EXPECT_EQ(level(u"\t", 0, 0), 0);
}

} // namespace
