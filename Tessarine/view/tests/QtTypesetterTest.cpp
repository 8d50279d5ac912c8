#include "Tessarine/view/QtTextMeasurer.h"
#include "Tessarine/view/tests/SampleRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace tessarine;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;

namespace {

constexpr std::u16string_view family = u"\U0001F469\u200D\U0001F469\u200D\U0001F467";

std::vector<double> offsets(const TextLine& row) {
    std::vector<double> found;
    for (std::int64_t at = row.stringRange().location; at <= row.stringRange().limit(); ++at)
        found.push_back(row.offsetForStringIndex(at));
    return found;
}

double widthOf(std::u16string_view text) {
    return sampleRow(text)->typographicBounds().width;
}

// The starts of all rows, and the end.
std::vector<std::int64_t> breaks(const std::shared_ptr<const AttributedString>& string, double width) {
    const auto typesetter = QtTextShaper().createTypesetter(string);
    std::vector<std::int64_t> found{0};
    while (found.back() < string->length())
        found.push_back(found.back() + typesetter->suggestLineBreak(found.back(), width));
    return found;
}

TEST(QtTextLine, HasAscendingOffsetsFromLeftToRight) {
    const auto row = sampleRow(u"let x = f(a,\tb)  ");
    const auto found = offsets(*row);
    EXPECT_TRUE(std::ranges::is_sorted(found));
    EXPECT_EQ(found.front(), 0);
    EXPECT_EQ(found.back(), row->typographicBounds().width);
    EXPECT_EQ(row->offsetForStringIndex(-5), 0);
    EXPECT_EQ(row->offsetForStringIndex(100), found.back());
    for (std::int64_t at = 0; at < row->stringRange().limit(); ++at) {
        EXPECT_EQ(row->stringIndexForPosition(found[at] + 0.5), at);
        EXPECT_EQ(row->stringIndexForPosition(found[at + 1] - 0.5), at + 1);
    }
    EXPECT_EQ(row->stringIndexForPosition(-100), 0);
    EXPECT_EQ(row->stringIndexForPosition(1e9), row->stringRange().limit());
}

TEST(QtTextLine, IsAsHighAsItsFontIsMeasured) {
    const TypographicBounds bounds = sampleRow(u"Height")->typographicBounds();
    EXPECT_NEAR(bounds.height(), QtTextMeasurer().metrics(sampleFont).lineHeight(), 0.01);
    EXPECT_NEAR(bounds.width, QtTextMeasurer().width(u"Height", sampleFont), 0.01);
    EXPECT_NEAR(sampleRow(family)->typographicBounds().leading, bounds.leading, 0.01);
}

TEST(QtTextLine, CountsFromTheStringItIsAPartOf) {
    const auto string = sampleString(u"first row second row");
    const auto row = QtTextShaper().createTypesetter(string)->createLine({10, 6});
    EXPECT_EQ(row->stringRange(), (TextRange{10, 6}));
    EXPECT_EQ(row->offsetForStringIndex(10), 0);
    EXPECT_NEAR(row->offsetForStringIndex(16), widthOf(u"second"), 0.01);
    EXPECT_EQ(row->stringIndexForPosition(0), 10);
}

TEST(QtTextLine, SetsTabsAtTheirInterval) {
    const auto row = sampleRow(u"\ta\t\tb");
    EXPECT_THAT(offsets(*row), ElementsAre(0, 40, ::testing::_, 80, 120, ::testing::_));
}

TEST(QtTextLine, KernsBetweenCharacters) {
    const auto string = sampleString(u"kerned");
    string->addAttributes({.kern = 3}, {0, 6});
    EXPECT_NEAR(sampleRow(string)->typographicBounds().width, widthOf(u"kerned") + 6 * 3, 0.01);
}

TEST(QtTextLine, RunsHaveTheirFonts) {
    const auto string = sampleString(u"small LARGE");
    string->addAttributes({.font = sampleFont.withTraits(FontTraits::bold)}, {0, 5});
    string->addAttributes({.font = Font::monospacedSystem(28)}, {6, 5});
    const auto row = sampleRow(string);
    EXPECT_GT(row->offsetForStringIndex(11) - row->offsetForStringIndex(6), 1.9 * widthOf(u"LARGE"));
    EXPECT_GT(row->typographicBounds().ascent, 1.9 * sampleRow(u"x")->typographicBounds().ascent);
}

TEST(QtTextLine, NeverStandsWithinACharacter) {
    for (const std::u16string_view text :
         {std::u16string_view(u"e\u0301\u0302"), family, std::u16string_view(u"\U0001F1E9\U0001F1EA"),
          std::u16string_view(u"\U0001F44D\U0001F3FD")}) {
        const auto row = sampleRow(u"a" + std::u16string(text) + u"b");
        const std::int64_t limit = 1 + static_cast<std::int64_t>(text.size());
        for (double x = row->offsetForStringIndex(1); x < row->offsetForStringIndex(limit); ++x)
            EXPECT_THAT(row->stringIndexForPosition(x), ::testing::AnyOf(1, limit));
        EXPECT_GT(row->offsetForStringIndex(limit), row->offsetForStringIndex(1));
    }
}

TEST(QtTextLine, PutsTheCaretWhereLettersRunFromRightToLeft) {
    const auto arabic = sampleRow(u"\u0645\u0631\u062D\u0628\u0627  ");
    auto found = offsets(*arabic);
    EXPECT_NEAR(found.front(), arabic->typographicBounds().width, 0.01);
    EXPECT_NEAR(found.back(), 0, 0.01);
    EXPECT_TRUE(std::ranges::is_sorted(found, std::greater()));
    EXPECT_EQ(arabic->stringIndexForPosition(1e9), 0);

    const auto mixed = sampleRow(u"ab \u05D0\u05D1 c");
    found = offsets(*mixed);
    EXPECT_TRUE(std::ranges::is_sorted(found.begin(), found.begin() + 4));
    EXPECT_NEAR(found[5] - found[3], widthOf(u"\u05D0\u05D1"), 0.01); // the runs' ends
    EXPECT_LT(found[4], found[5]);
    EXPECT_EQ(found.back(), mixed->typographicBounds().width);
}

// The letters of "ab אב גד c" stand as "ab דג בא c".
TEST(QtTextLine, KnowsWhereCharactersShowThatRunFromRightToLeft) {
    const auto row = sampleRow(u"ab \u05D0\u05D1 \u05D2\u05D3 c");
    const double hebrew = row->offsetForStringIndex(3);
    EXPECT_NEAR(row->spansOf({6, 2})[0].minX, hebrew, 0.2) << "the second word on the left";
    EXPECT_NEAR(row->spansOf({6, 2})[0].maxX, row->spansOf({5, 1})[0].minX, 0.2);
    EXPECT_NEAR(row->spansOf({5, 1})[0].maxX, row->spansOf({3, 2})[0].minX, 0.2);
    EXPECT_NEAR(row->spansOf({3, 2})[0].maxX, row->offsetForStringIndex(8), 0.2);
    const auto whole = row->spansOf({0, 10});
    ASSERT_EQ(whole.size(), 1) << "what touches is one";
    EXPECT_NEAR(whole[0].maxX - whole[0].minX, row->typographicBounds().width, 0.2);
    const auto parts = row->spansOf({2, 2}); // the space and the letter that stands right of all others
    ASSERT_EQ(parts.size(), 2);
    EXPECT_NEAR(parts[0].maxX, hebrew, 0.2);
    EXPECT_NEAR(parts[1].maxX, row->offsetForStringIndex(8), 0.2);
    EXPECT_EQ(row->spansOf({4, 0}).size(), 1);
    const auto arabic = sampleRow(u"\u0645\u0631\thello\u0645"); // hello runs to the right
    EXPECT_NEAR(arabic->spansOf({3, 5})[0].minX, widthOf(u"\u0645"), 2);
    EXPECT_NEAR(arabic->spansOf({3, 5})[0].maxX, arabic->spansOf({2, 1})[0].minX, 0.2);
    EXPECT_NEAR(arabic->spansOf({2, 1})[0].maxX, arabic->spansOf({0, 2})[0].minX, 0.2);
    EXPECT_NEAR(sampleRow(u"abc")->spansOf({1, 1})[0].minX, widthOf(u"a"), 0.01);
}

TEST(QtTextLine, GivesLineBreaksNoRoom) {
    for (const std::u16string_view lineBreak : {u"\n", u"\r", u"\r\n", u"\u0085", u"\u2028", u"\u2029"})
        EXPECT_EQ(sampleRow(u"ab" + std::u16string(lineBreak))->typographicBounds(),
                  sampleRow(u"ab")->typographicBounds());
    EXPECT_EQ(widthOf(u"\n"), 0);
    EXPECT_GT(sampleRow(u"\n")->typographicBounds().height(), 0);
}

TEST(QtTypesetter, BreaksBehindTheLastCharacterThatFits) {
    const double em = widthOf(u"m");
    const auto string = sampleString(u"0123456789ab\U0001F469");
    EXPECT_THAT(breaks(string, 4 * em), ElementsAre(0, 4, 8, 12, 14));
    EXPECT_THAT(breaks(string, 4 * em - 0.1), ElementsAre(0, 3, 6, 9, 12, 14));
    EXPECT_THAT(breaks(string, em / 2), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14));
    EXPECT_THAT(breaks(string, 1e9), ElementsAre(0, 14));
    EXPECT_THAT(breaks(sampleString(u"ab  \r\n"), 2 * em), ElementsAre(0, 2, 6));
}

TEST(QtTypesetter, BreaksByFontsAndNotByColors) {
    const auto string = sampleString(std::u16string(100, u'm'));
    const auto plain = breaks(string, 200);
    for (std::int64_t at = 0; at < 100; at += 2)
        string->addAttributes({.foregroundColor = Color(RGBAColor::ofHex(0xFF0000))}, {at, 1});
    EXPECT_EQ(breaks(string, 200), plain);
    string->addAttributes({.font = Font::monospacedSystem(28)}, {plain[1], 100 - plain[1]});
    const auto larger = breaks(string, 200);
    EXPECT_EQ(larger[1], plain[1]);
    EXPECT_LT(2 * (larger[2] - larger[1]), plain[1] + 2);
}

TEST(QtTypesetter, NeverSplitsACharacter) {
    std::u16string text;
    for (int i = 0; i < 40; ++i)
        (text += family) += u"e\u0301";
    const std::int64_t unit = static_cast<std::int64_t>(family.size()) + 2;
    for (double width = 5; width < 300; width += 7)
        for (const std::int64_t at : breaks(sampleString(text), width))
            EXPECT_THAT(at % unit, ::testing::AnyOf(0, unit - 2)) << width;
}

TEST(QtTypesetter, RowsThatRunFromRightToLeftFit) {
    std::u16string text;
    for (int i = 0; i < 30; ++i)
        text += u"\u0645\u0631\u062D\u0628\u0627 abc, ";
    const auto string = sampleString(text);
    const auto found = breaks(string, 200);
    const auto typesetter = QtTextShaper().createTypesetter(string);
    EXPECT_GT(found.size(), 5);
    for (std::size_t i = 0; i + 1 < found.size(); ++i) {
        const auto row = typesetter->createLine({found[i], found[i + 1] - found[i]});
        EXPECT_LE(row->typographicBounds().width, 200);
        EXPECT_TRUE(i + 2 == found.size() || row->typographicBounds().width > 180);
    }
}

TEST(QtTypesetter, DependsOnNothingInFrontOfTheRow) {
    std::u16string text(500, u'x');
    text += u"\u0645\u0631\u062D one two \U0001F469\u200D\U0001F469 three";
    const auto whole = QtTextShaper().createTypesetter(sampleString(text));
    for (const std::int64_t start : {490, 500, 504, 511}) {
        const auto rest = QtTextShaper().createTypesetter(sampleString(text.substr(start)));
        EXPECT_EQ(whole->suggestLineBreak(start, 100), rest->suggestLineBreak(0, 100)) << start;
    }
}

TEST(QtTypesetter, LooksAtABoundedPart) {
    const std::int64_t length = 10'000'000;
    const auto text = std::u16string(length, u'\u200B');
    const auto typesetter = QtTextShaper().createTypesetter(sampleString(text));
    EXPECT_EQ(typesetter->suggestLineBreak(0, 300), 16'384);
    EXPECT_EQ(typesetter->suggestLineBreak(length - 10, 300), 10);
}

TEST(QtTypesetter, SetsWhateverUnitsThereAre) {
    std::mt19937 random(7);
    const auto width = [&] { return static_cast<double>(1 + random() % 100); };
    const std::u16string units = u"a \t\n\r\u0000\u0007\u0301\u200B\u200D\u202E\u2066\u2028\uFFFC\uFEFF"
                                 u"\u0645\u05D0\U0001F1E9\uFFFF\u0E33\u0915\u094D" +
                                 std::u16string{char16_t{0xD83D}, char16_t{0xDC69}};
    for (int trial = 0; trial < 300; ++trial) {
        std::u16string text;
        for (unsigned i = 0; i < 1 + random() % 60; ++i)
            text += units[random() % units.size()];
        const auto string = sampleString(text);
        const auto typesetter = QtTextShaper().createTypesetter(string);
        const auto found = breaks(string, width());
        for (std::size_t i = 0; i + 1 < found.size(); ++i) {
            const auto row = typesetter->createLine({found[i], found[i + 1] - found[i]});
            EXPECT_THAT(offsets(*row), Each(Ge(-0.1)));
            const std::int64_t index = row->stringIndexForPosition(width());
            EXPECT_GE(index, found[i]);
            EXPECT_LE(index, found[i + 1]);
        }
    }
}

} // namespace
