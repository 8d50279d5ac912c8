#include "Tessarine/document/LineEndingDetector.h"

#include "Tessarine/document/LineManager.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

std::optional<LineEnding> detected(std::u16string_view text) {
    const auto stringView = std::make_shared<StringView>(text);
    LineManager manager(stringView);
    manager.rebuild(text);
    return LineEndingDetector(manager, *stringView).detect();
}

std::u16string repeated(std::u16string_view text, int count) {
    std::u16string result;
    while (count-- > 0)
        result += text;
    return result;
}

TEST(LineEndingDetector, TheMostFrequentWinsAndTheFirstOfEquals) {
    EXPECT_EQ(detected(u"one line"), std::nullopt);
    EXPECT_EQ(detected(u"a\u2028b\u0085"), std::nullopt);
    EXPECT_EQ(detected(u"a\r\nb\r\nc\nd\n"), LineEnding::lf);
    EXPECT_EQ(detected(u"a\rb\rc\r\nd\r\ne"), LineEnding::crlf);
    EXPECT_EQ(detected(u"a\rb\nc\r"), LineEnding::cr);
    EXPECT_EQ(detected(repeated(u"a\r", 10) + repeated(u"b\n", 10) + u"c\rd\re\r"), LineEnding::lf);
}

TEST(LineEndingDetector, TwentyLinesCountAndThoseOfOtherBreaksDoNot) {
    EXPECT_EQ(detected(repeated(u"\r\n", 11) + repeated(u"\n", 9) + repeated(u"\n", 5)), LineEnding::crlf);
    EXPECT_EQ(detected(repeated(u"\u2029", 30) + repeated(u"\r", 11) + repeated(u"\n", 50)), LineEnding::cr);
}

TEST(LineEnding, SymbolsAndRawValuesNameTheCases) {
    for (const LineEnding lineEnding : allLineEndings) {
        EXPECT_EQ(lineEndingFromSymbol(symbol(lineEnding)), lineEnding);
        EXPECT_EQ(lineEndingFromRawValue(rawValue(lineEnding)), lineEnding);
    }
    EXPECT_EQ(symbol(LineEnding::crlf), u"\r\n");
    EXPECT_EQ(rawValue(LineEnding::cr), "cr");
    EXPECT_EQ(lineEndingFromSymbol(u"\n\r"), std::nullopt);
    EXPECT_EQ(lineEndingFromRawValue("LF"), std::nullopt);
}

} // namespace
