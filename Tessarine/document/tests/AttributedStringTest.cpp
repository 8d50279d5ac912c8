#include "Tessarine/document/AttributedString.h"

#include "Tessarine/document/StringView.h"

#include <gtest/gtest.h>

#include <random>

using namespace tessarine;

namespace {

constexpr Color red(RGBAColor::ofHex(0xFF0000));
constexpr Color green(RGBAColor::ofHex(0x00FF00));

TextAttributes colored(const Color& color) {
    return {.foregroundColor = color};
}

std::vector<std::int64_t> limitsOf(const AttributedString& string, const TextRange& range) {
    std::vector<std::int64_t> limits;
    for (const AttributedString::Run& run : string.runs(range))
        limits.push_back(run.range.limit());
    return limits;
}

TEST(AttributedString, SplitsAndMergesItsRuns) {
    using Limits = std::vector<std::int64_t>;
    AttributedString string(u"0123456789");
    EXPECT_EQ(string.runAt(9).range, (TextRange{0, 10}));
    string.addAttributes(colored(red), {2, 3});
    EXPECT_EQ(limitsOf(string, {0, 10}), (Limits{2, 5, 10}));
    EXPECT_EQ(string.runAt(4).range, (TextRange{2, 3}));
    string.addAttributes(colored(red), {5, 5});
    EXPECT_EQ(limitsOf(string, {0, 10}), (Limits{2, 10}));
    EXPECT_EQ(limitsOf(string, {1, 3}), (Limits{2, 4}));
    EXPECT_EQ(limitsOf(string, {3, 2}), (Limits{5}));
    EXPECT_TRUE(limitsOf(string, {10, 0}).empty());
    string.addAttributes(colored(green), {4, 0});
    EXPECT_EQ(limitsOf(string, {0, 10}), (Limits{2, 10}));
    string.setAttributes({}, {0, 10});
    EXPECT_EQ(string, AttributedString(u"0123456789"));
}

TEST(AttributedString, AddsToWhatIsThereAndSetsInItsPlace) {
    const Font font{"Menlo-Regular", 14, FontTraits::bold};
    const Shadow shadow{.color = red, .offsetX = 1, .offsetY = 1, .blurRadius = 2};
    AttributedString string(u"ab");
    string.addAttributes({.foregroundColor = red, .font = font, .kern = 1, .isBold = true}, {0, 2});
    string.addAttributes({.foregroundColor = green, .shadow = shadow, .isItalic = true}, {1, 1});
    string.addAttributes({.defaultTabInterval = 20}, {0, 2});
    const TextAttributes expected{.foregroundColor = green,
                                  .font = font,
                                  .kern = 1,
                                  .shadow = shadow,
                                  .defaultTabInterval = 20,
                                  .isBold = true,
                                  .isItalic = true};
    EXPECT_EQ(string.runAt(1).attributes, expected);
    EXPECT_EQ(string.runAt(0).attributes.foregroundColor, red);
    string.setAttributes({.kern = 2}, {1, 1});
    EXPECT_EQ(string.runAt(1).attributes, (TextAttributes{.kern = 2}));
}

TEST(AttributedString, StopsAtARangeOutsideOfIt) {
    AttributedString empty(u"");
    empty.setAttributes(colored(red), {0, 0});
    EXPECT_TRUE(empty.runs({0, 0}).empty());
    EXPECT_DEATH((void)empty.runAt(0), "Fatal error");
    AttributedString string(u"ab");
    EXPECT_DEATH(string.addAttributes({}, {1, 2}), "Fatal error");
    EXPECT_DEATH(string.setAttributes({}, {-1, 1}), "Fatal error");
    EXPECT_DEATH((void)string.runs({0, -1}), "Fatal error");
    EXPECT_DEATH((void)string.runAt(2), "Fatal error");
}

TEST(AttributedString, SharesAPartOfAText) {
    StringView text(u"ab\u0416cdefgh");
    const AttributedString string(text.snapshot(), {2, 4});
    text.replaceCharacters(0, 5, u"");
    EXPECT_EQ(string, AttributedString(u"\u0416cde"));
    EXPECT_EQ(string.characterAt(1), u'c');
    EXPECT_EQ(string.substring({1, 2}), u"cd");
    EXPECT_EQ(string.part({1, 2}), AttributedString(u"cd"));
    EXPECT_NE(string, AttributedString(u"\u0416cdf"));
    EXPECT_NE(string, AttributedString(u"\u0416cdef"));
    EXPECT_DEATH((void)string.substring({3, 2}), "Fatal error");
}

TEST(AttributedString, KnowsWhatItHasInCommonWithAnotherVersionOfItsText) {
    std::u16string line;
    for (int i = 0; i < 20'000; ++i)
        line += static_cast<char16_t>(u'a' + i % 26);
    StringView text(u"x" + line);
    const AttributedString before(text.snapshot(), {1, 20'000});
    text.replaceCharacters(9'001, 1, u"\u0416");
    text.replaceCharacters(0, 1, u"yz");
    const AttributedString after(text.snapshot(), {2, 20'000});
    EXPECT_EQ(before.commonPrefixLength(after), 9'000);
    EXPECT_EQ(after.commonPrefixLength(before), 9'000);
    EXPECT_EQ(before.commonPrefixLength(AttributedString(line)), 20'000);
    EXPECT_EQ(before.commonPrefixLength(AttributedString(u"abcd")), 4);
    EXPECT_EQ(before.commonPrefixLength(AttributedString(u"")), 0);
}

TEST(AttributedString, TakesOverAttributesFromAStringOfAPart) {
    AttributedString part(u"xyz");
    part.setAttributes(colored(red), {1, 2});
    AttributedString string(u"0123456789");
    string.setAttributes(colored(green), {0, 10});
    string.copyAttributes(part, 4);
    AttributedString expected(u"0123456789");
    expected.setAttributes(colored(green), {0, 4});
    expected.setAttributes(colored(red), {5, 2});
    expected.setAttributes(colored(green), {7, 3});
    EXPECT_EQ(string, expected);
}

class RandomAttributes : public ::testing::TestWithParam<unsigned> {};

// Against one that keeps attributes for every unit.
TEST_P(RandomAttributes, AreThoseOfANaiveModel) {
    std::mt19937 random(GetParam());
    const auto length = static_cast<std::int64_t>(1 + random() % 40);
    AttributedString string(std::u16string(static_cast<std::size_t>(length), u'a'));
    std::vector<TextAttributes> model(static_cast<std::size_t>(length));
    for (int step = 0; step < 300; ++step) {
        const auto location = static_cast<std::int64_t>(random() % (length + 1));
        const TextRange range{location, static_cast<std::int64_t>(random() % (length - location + 1))};
        TextAttributes attributes;
        if (random() % 2) attributes.foregroundColor = random() % 2 ? red : green;
        if (random() % 2) attributes.kern = random() % 2;
        attributes.isBold = random() % 4 == 0;
        const bool sets = random() % 3 == 0;
        sets ? string.setAttributes(attributes, range) : string.addAttributes(attributes, range);
        for (auto at = static_cast<std::size_t>(location); at < static_cast<std::size_t>(range.limit()); ++at)
            sets ? void(model[at] = attributes) : model[at].add(attributes);

        std::int64_t limit = 0;
        const TextAttributes* previous = nullptr;
        for (const AttributedString::Run& run : string.runs({0, length})) {
            ASSERT_EQ(run.range.location, limit) << "seed " << GetParam();
            ASSERT_GT(run.range.length, 0);
            ASSERT_FALSE(previous && *previous == run.attributes) << "seed " << GetParam();
            for (limit = run.range.location; limit < run.range.limit(); ++limit)
                ASSERT_EQ(run.attributes, model[static_cast<std::size_t>(limit)]) << "seed " << GetParam();
            ASSERT_EQ(string.runAt(limit - 1).range, run.range);
            previous = &run.attributes;
        }
        ASSERT_EQ(limit, length);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomAttributes, ::testing::Range(0U, 20U));

} // namespace
