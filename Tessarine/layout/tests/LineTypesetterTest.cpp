#include "Tessarine/layout/LineTypesetter.h"

#include "Tessarine/layout/tests/FixedAdvanceShaper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::vector<std::u16string> textsOf(const LineFragments& fragments, const AttributedString& string) {
    std::vector<std::u16string> texts;
    for (const LineFragmentReference& fragment : fragments)
        texts.push_back(string.substring(fragment->range));
    return texts;
}

struct LineTypesetterTest : ::testing::Test {
    void prepare(std::u16string_view text, double width) {
        string = std::make_shared<AttributedString>(text);
        typesetter.setConstrainingWidth(width);
        typesetter.reset();
        typesetter.prepareToTypeset(string);
    }

    // The rows of a whole text in so many columns.
    std::vector<std::u16string> rows(std::u16string_view text, int columns) {
        prepare(text, columns * 10);
        typesetter.typesetLineFragments(string->length(), 0);
        return textsOf(typesetter.lineFragments(), *string);
    }

    const std::shared_ptr<FixedAdvanceShaper> shaper = std::make_shared<FixedAdvanceShaper>();
    LineTypesetter typesetter{shaper};
    std::shared_ptr<AttributedString> string;
};

TEST_F(LineTypesetterTest, BreaksBehindWords) {
    EXPECT_THAT(rows(u"one two three", 8), ElementsAre(u"one two ", u"three"));
    // A space that ends a row stays on it.
    EXPECT_THAT(rows(u"one two three", 4), ElementsAre(u"one ", u"two ", u"thre", u"e"));
    EXPECT_THAT(rows(u"a\u00A0bc", 3), ElementsAre(u"a\u00A0", u"bc"));
    EXPECT_THAT(rows(u"f(a).g", 5), ElementsAre(u"f(a).", u"g"));
    EXPECT_THAT(rows(u"f(alpha, beta)", 9), ElementsAre(u"f(alpha, ", u"beta)"));
    // A line break is no white space to break at.
    EXPECT_THAT(rows(u"ab\ncd", 4), ElementsAre(u"ab\ncd"));
    EXPECT_THAT(rows(u"ab\ncde", 4), ElementsAre(u"ab\ncd", u"e"));
}

TEST_F(LineTypesetterTest, BreaksWithinWordsWhereThatIsWanted) {
    typesetter.setLineBreakMode(LineBreakMode::byCharWrapping);
    EXPECT_THAT(rows(u"one two three", 8), ElementsAre(u"one two ", u"three"));
    EXPECT_THAT(rows(u"one two three", 6), ElementsAre(u"one tw", u"o thre", u"e"));
    EXPECT_THAT(rows(u"abc def", 3), ElementsAre(u"abc", u" de", u"f"));
    typesetter.setLineBreakMode(LineBreakMode::byWordWrapping);
    EXPECT_THAT(rows(u"one two three", 6), ElementsAre(u"one ", u"two ", u"three"));
}

TEST_F(LineTypesetterTest, TakesWhatClosesARowAsLongAsItFits) {
    // No room for the unit behind the suggested row; it then begins the next, where nobody looks for it.
    EXPECT_THAT(rows(u"abc def", 3), ElementsAre(u"abc", u" de", u"f"));
    EXPECT_THAT(rows(u"abc,def", 3), ElementsAre(u"abc", u",de", u"f"));
    shaper->overshoot = -1;
    EXPECT_THAT(rows(u"abc def", 4), ElementsAre(u"abc ", u"de", u"f"));
    EXPECT_THAT(rows(u"abc,def", 4), ElementsAre(u"abc,", u"de", u"f"));
}

TEST_F(LineTypesetterTest, BreaksWordsThatAreTooLong) {
    const std::u16string hundred(100, u'a');
    // The boundary is 100 units back from the unit behind the row, or 99.
    EXPECT_THAT(rows(u"bb " + hundred + u"cc", 102), ElementsAre(u"bb " + hundred.substr(1), u"acc"));
    EXPECT_THAT(rows(u"bb " + hundred + u"cc", 101), ElementsAre(u"bb ", hundred + u"c", u"c"));
    EXPECT_THAT(rows(hundred, 60), ElementsAre(hundred.substr(60) + hundred.substr(80), hundred.substr(60)));
}

TEST_F(LineTypesetterTest, ShortensARowThatDoesNotFit) {
    shaper->overshoot = 3;
    EXPECT_THAT(rows(u"abcdefgh", 4), ElementsAre(u"abcd", u"efgh"));
    // Never to nothing, and never between the halves of a pair.
    EXPECT_THAT(rows(u"ab", 0), IsEmpty());
    prepare(u"a\U0001F600\U0001F601b", 5);
    typesetter.typesetLineFragments(6, 0);
    EXPECT_THAT(textsOf(typesetter.lineFragments(), *string),
                ElementsAre(u"a", u"\U0001F600", u"\U0001F601", u"b"));
    shaper->overshoot = 0;
    EXPECT_THAT(rows(u"\xD83D\xD83D\xDE00\xDE00", 1), ElementsAre(u"\xD83D", u"\xD83D\xDE00", u"\xDE00"));
}

TEST_F(LineTypesetterTest, HasRowsWithTheirSizes) {
    typesetter.setLineFragmentHeightMultiplier(1.5);
    prepare(u"ab c\u6F22 \td", 50);
    string->addAttributes({.kern = 1, .defaultTabInterval = 33}, {0, 8});
    const TypesetResult result = typesetter.typesetLineFragments(8, 0);
    ASSERT_THAT(textsOf(result.lineFragments, *string), ElementsAre(u"ab ", u"c\u6F22 ", u"\td"));
    const LineFragment& row = *result.lineFragments[1];
    EXPECT_EQ(row.index, 1);
    EXPECT_EQ(row.range, (TextRange{3, 3}));
    EXPECT_EQ(row.descent, 2);
    EXPECT_EQ(row.baseSize, (Size{43, 11}));
    EXPECT_EQ(row.scaledSize, (Size{43, 16.5}));
    EXPECT_EQ(row.yPosition, 16.5);
    EXPECT_EQ(row.line->offsetForStringIndex(5), 32);
    EXPECT_EQ(result.lineFragments[2]->line->offsetForStringIndex(7), 34);
    EXPECT_EQ(result.maximumLineWidth, 45);
    EXPECT_EQ(typesetter.maximumLineWidth(), 45);
    EXPECT_EQ(typesetter.nextYPosition(), 49.5);
    EXPECT_EQ(row.id.id(), typesetter.lineID().text() + "[1]");
    EXPECT_EQ(result.lineFragmentsMap.find(row.id), 1);
    EXPECT_EQ(typesetter.lineFragmentsMap().find({.lineID = {}, .index = 1}), std::nullopt);
    EXPECT_EQ(typesetter.lineFragmentsMap().find({.lineID = typesetter.lineID(), .index = 3}), std::nullopt);
}

TEST_F(LineTypesetterTest, SetsNoMoreThanIsAskedFor) {
    prepare(u"aaa bbb ccc ddd eee", 40);
    const auto reaching = [&](double maxY) {
        return textsOf(typesetter.typesetLineFragments(Rect{.y = 1, .height = maxY - 1}).lineFragments,
                       *string);
    };
    EXPECT_THAT(reaching(11), ElementsAre(u"aaa "));
    EXPECT_THAT(reaching(11), IsEmpty());
    EXPECT_THAT(reaching(12), ElementsAre(u"bbb "));
    const auto locating = [&](std::int64_t location, std::int64_t more) {
        return textsOf(typesetter.typesetLineFragments(location, more).lineFragments, *string);
    };
    EXPECT_THAT(locating(3, 0), IsEmpty());
    EXPECT_THAT(locating(8, 0), IsEmpty());
    EXPECT_THAT(locating(9, 1), ElementsAre(u"ccc ", u"ddd "));
    EXPECT_EQ(typesetter.attributedString(), string);
    EXPECT_THAT(locating(1'000, 1), ElementsAre(u"eee"));
    EXPECT_EQ(typesetter.attributedString(), nullptr);
    EXPECT_THAT(locating(1'000, 1), IsEmpty());
    EXPECT_THAT(reaching(1'000), IsEmpty());
    EXPECT_EQ(typesetter.lineFragmentIndex(), 5);
    typesetter.reset();
    EXPECT_THAT(typesetter.lineFragments(), IsEmpty());
    EXPECT_EQ(typesetter.maximumLineWidth(), 0);
    EXPECT_EQ(typesetter.nextYPosition(), 0);
    EXPECT_THAT(locating(1'000, 1), IsEmpty());
}

// One more beside the row that holds a location, though rows up to there are set.
TEST_F(LineTypesetterTest, CountsAdditionalRowsFromTheOneAtTheLocation) {
    prepare(u"aaa bbb ccc ddd eee", 40);
    EXPECT_EQ(typesetter.typesetLineFragments(0, 1).lineFragments.size(), 2U);
    EXPECT_EQ(typesetter.typesetLineFragments(0, 0).lineFragments.size(), 0U);
    EXPECT_EQ(typesetter.typesetLineFragments(4, 1).lineFragments.size(), 2U);
}

TEST_F(LineTypesetterTest, GuessesTheNumberOfRows) {
    prepare(u"", 40);
    EXPECT_EQ(typesetter.bestGuessNumberOfLineFragments(), 0);
    prepare(std::u16string(45, u'a'), 40);
    EXPECT_EQ(typesetter.bestGuessNumberOfLineFragments(), 0);
    typesetter.typesetLineFragments(8, 0);
    EXPECT_EQ(typesetter.bestGuessNumberOfLineFragments(), 11); // 2 + 37 / 4
    typesetter.typesetLineFragments(45, 0);
    EXPECT_EQ(typesetter.bestGuessNumberOfLineFragments(), 12);
}

TEST_F(LineTypesetterTest, SetsOnlyTheRowsAgainThatMayHaveChanged) {
    std::u16string text;
    for (int row = 0; row < 100; ++row)
        text += u"aaaaaaaa ";
    rows(text, 10);
    const LineFragments before = typesetter.lineFragments();
    *shaper->lineCount = 0;
    string->setAttributes({.font = Font{"a", 1, FontTraits::italic}}, {455, 2});
    auto changed = typesetter.typesetAgain(string, {455, 2});
    EXPECT_EQ(changed.first, 49);
    EXPECT_EQ(changed.limit, 51);
    EXPECT_EQ(*shaper->lineCount, 2);
    EXPECT_EQ(typesetter.lineFragments()[48], before[48]);
    EXPECT_EQ(typesetter.lineFragments()[51], before[51]);
    string->setAttributes({.kern = 30}, {455, 2});
    changed = typesetter.typesetAgain(string, {455, 2});
    EXPECT_EQ(changed.limit, 101); // there is a row more
    EXPECT_EQ(*shaper->lineCount, 2 + 3);
    EXPECT_EQ(typesetter.lineFragments()[60]->line, before[59]->line);
    EXPECT_EQ(typesetter.continueWith(std::make_shared<AttributedString>(text + u"b"), 464), 51);
    EXPECT_EQ(typesetter.lineFragments()[48], before[48]);
}

class RandomRows : public ::testing::TestWithParam<unsigned> {
protected:
    std::u16string text(std::size_t limit) {
        static constexpr std::u16string_view units = u"aaaaaabcde   ,.\t\u6F22";
        std::u16string made;
        for (std::size_t length = m_random() % (limit + 1); made.size() < length;)
            made += units[m_random() % units.size()];
        return made;
    }

    std::int64_t below(std::int64_t limit) { return static_cast<std::int64_t>(m_random() % limit); }

    static void expectSame(const LineTypesetter& typesetter, std::int64_t count,
                           const LineTypesetter& fresh) {
        ASSERT_LE(count, fresh.lineFragmentIndex());
        ASSERT_EQ(count, typesetter.lineFragmentIndex());
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            const LineFragment& row = *typesetter.lineFragments()[i];
            const LineFragment& expected = *fresh.lineFragments()[i];
            ASSERT_EQ(row.index, expected.index);
            ASSERT_EQ(row.id.index, expected.index);
            ASSERT_EQ(row.range, expected.range) << "row " << i << " seed " << GetParam();
            ASSERT_EQ(row.yPosition, expected.yPosition);
            ASSERT_EQ(row.scaledSize, expected.scaledSize);
        }
    }

    std::mt19937 m_random{GetParam()};
    const std::shared_ptr<FixedAdvanceShaper> m_shaper = std::make_shared<FixedAdvanceShaper>();
};

// Texts that change at random places, attributes that make them wider or not.
TEST_P(RandomRows, AreThoseOfALineThatIsSetFromTheStart) {
    LineTypesetter typesetter{m_shaper};
    typesetter.setConstrainingWidth(static_cast<double>(30 + below(100)));
    auto string = std::make_shared<AttributedString>(text(600) + u"a");
    typesetter.prepareToTypeset(string);
    for (int step = 0; step < 150; ++step) {
        switch (below(3)) {
        case 0: {
            std::u16string changed = string->substring({0, string->length()});
            changed.replace(static_cast<std::size_t>(below(string->length())),
                            static_cast<std::size_t>(below(40)), text(30));
            if (changed.empty()) break;
            auto next = std::make_shared<AttributedString>(changed);
            const std::int64_t unchanged = string->commonPrefixLength(*next);
            const TextRange kept{0, unchanged};
            next->copyAttributes(AttributedString(changed.substr(0, unchanged)), 0);
            for (const AttributedString::Run& run : string->runs(kept))
                next->setAttributes(run.attributes, run.range);
            string = next;
            typesetter.continueWith(string, unchanged);
            break;
        }
        case 1: {
            const std::int64_t start = below(string->length());
            const TextRange range{start, 1 + below(std::min<std::int64_t>(string->length() - start, 60))};
            const auto traits = below(2) == 0 ? FontTraits::bold : FontTraits::italic;
            string->setAttributes({.font = Font{"a", 1, traits}}, range);
            const std::int64_t startOffset = typesetter.startOffset();
            const auto changed = typesetter.typesetAgain(string, range);
            ASSERT_GE(typesetter.startOffset(), startOffset);
            ASSERT_LE(changed.limit, typesetter.lineFragmentIndex());
            break;
        }
        default:
            typesetter.typesetLineFragments(below(string->length() + 50), below(2));
        }
        LineTypesetter fresh{m_shaper};
        fresh.setConstrainingWidth(typesetter.constrainingWidth());
        fresh.prepareToTypeset(string);
        fresh.typesetLineFragments(string->length(), 0);
        expectSame(typesetter, typesetter.lineFragmentIndex(), fresh);
        ASSERT_LE(typesetter.maximumLineWidth(), fresh.maximumLineWidth());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRows, ::testing::Range(0U, 16U));

} // namespace
