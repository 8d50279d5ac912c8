#include "Tessarine/textview/tests/ShownText.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

using namespace tessarine;

namespace {

class ForeignPosition final : public TextPosition {};

class ForeignRange final : public TextPositionRange {};

TEST(LineMovementController, StepsToTheSides) {
    ShownText text(u"a\r\nb\U0001F1E9\U0001F1EA");
    const auto at = [&](std::int64_t location, std::int64_t offset) {
        return text.view->lineMovementController().locationByHorizontalOffset(location, offset);
    };
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    for (const auto& [location, offset, expected] :
         {std::tuple<std::int64_t, std::int64_t, std::int64_t>{8, 1, 8},
          {0, -1, 0},
          {1, -1, 0},
          {1, 1, 3},
          {3, -1, 1},
          {4, 1, 8},
          {7, 1, 8},
          {8, -1, 4},
          {3, -2, 1},
          {2, most, 2},
          {2, -most - 1, 2}})
        EXPECT_EQ(at(location, offset), expected) << location << " by " << offset;
}

// The column counts in code units, and each step has its own.
TEST(LineMovementController, StepsByRows) {
    ShownText text(u"0123456789abcde\n\nxy\n");
    const auto at = [&](std::int64_t location, std::int64_t offset) {
        return text.view->lineMovementController().locationByLineOffset(location, offset);
    };
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    for (const auto& [location, offset, expected] :
         {std::tuple<std::int64_t, std::int64_t, std::int64_t>{3, 1, 13},
          {8, 1, 15},
          {13, -1, 3},
          {10, -1, 0},
          {13, 1, 16},
          {16, 1, 17},
          {3, 3, 19},
          {19, -3, 2},
          {3, -1, 0},
          {20, -1, 17},
          {18, 1, 20},
          {20, 1, 20},
          {5, 0, 5},
          {15, 0, 15},
          {-1, 1, -1},
          {21, -1, 21},
          {3, most, 20},
          {20, -most - 1, 0}})
        EXPECT_EQ(at(location, offset), expected) << location << " by " << offset;
}

TEST(TextInputPositions, AreReckonedWithInTheText) {
    ShownText text(u"ab\ncd");
    const TextInputPositions positions = text.view->positions();
    const auto start = positions.beginningOfDocument();
    const auto end = positions.endOfDocument();
    EXPECT_EQ(positions.positionFromPosition(*start, 5)->index(), 5);
    EXPECT_EQ(positions.positionFromPosition(*start, 6), nullptr);
    EXPECT_EQ(positions.positionFromPosition(*start, -1), nullptr);
    EXPECT_EQ(positions.positionFromPosition(*end, std::numeric_limits<std::int64_t>::max()), nullptr);
    using enum TextDirection;
    const IndexedPosition at(1);
    const auto index = [&](TextDirection direction) {
        return positions.positionFromPosition(at, direction, 1)->index();
    };
    EXPECT_EQ(index(right), 2);
    EXPECT_EQ(index(left), 0);
    EXPECT_EQ(index(down), 4);
    EXPECT_EQ(index(up), 0);
    EXPECT_EQ(positions.positionFromPosition(at, forward, 1), nullptr);
    EXPECT_EQ(TextInputPositions::comparePosition(*end, at), std::strong_ordering::greater);
    EXPECT_EQ(TextInputPositions::offsetFromPosition(*end, at), -4);
    const auto range = TextInputPositions::rangeFromPosition(*end, at);
    EXPECT_EQ(range->range(), (TextRange{5, -4}));
    EXPECT_EQ(rangeOf(*range), (TextRange{1, 4}));
    EXPECT_EQ(rangeOf(IndexedRange({3, -7})), (TextRange{0, 3}));
    EXPECT_TRUE(IndexedRange({3, 0}).isEmpty());
}

TEST(TextInputPositions, PositionsOfOthersAreAFault) {
    const ForeignPosition position;
    EXPECT_DEATH(indexOf(position), "Expected position to be of type IndexedPosition");
    EXPECT_DEATH(rangeOf(ForeignRange()), "Expected range to be of type IndexedRange");
    EXPECT_DEATH(TextInputPositions::comparePosition(IndexedPosition(0), position),
                 "Positions must be of type IndexedPosition");
    const auto lines = EditedDocument::empty();
    const LineMovementController controller(lines.stringView, lines.lineManager);
    EXPECT_DEATH(controller.locationByLineOffset(0, 1), "Delegate of LineMovementController is unavailable");
}

class Tokenizer : public testing::Test {
protected:
    bool isAt(std::int64_t location, TextGranularity granularity, TextDirection direction) {
        return tokenizer.isPositionAtBoundary(IndexedPosition(location), granularity, direction);
    }

    std::int64_t to(std::int64_t location, TextGranularity granularity, TextDirection direction) {
        const auto found = tokenizer.positionToBoundary(IndexedPosition(location), granularity, direction);
        return found ? found->index() : -1;
    }

    std::optional<TextRange> around(std::int64_t location, TextGranularity granularity,
                                    TextDirection direction) {
        const auto found =
            tokenizer.rangeEnclosingPosition(IndexedPosition(location), granularity, direction);
        EXPECT_EQ(tokenizer.isPositionWithinTextUnit(IndexedPosition(location), granularity, direction),
                  found != nullptr);
        return found ? std::optional(found->range()) : std::nullopt;
    }

    ShownText text{u"one two\r\n\r\nx"};
    TextInputStringTokenizer tokenizer = text.view->tokenizer();
};

TEST_F(Tokenizer, LinesEndInFrontOfTheirBreaks) {
    using enum TextDirection;
    for (const auto granularity : {TextGranularity::line, TextGranularity::paragraph}) {
        for (const auto direction : {forward, right}) {
            EXPECT_TRUE(isAt(7, granularity, direction));
            EXPECT_FALSE(isAt(0, granularity, direction));
            EXPECT_TRUE(isAt(9, granularity, direction));
            EXPECT_EQ(to(3, granularity, direction), 7);
        }
        for (const auto direction : {backward, left}) {
            EXPECT_TRUE(isAt(0, granularity, direction));
            EXPECT_FALSE(isAt(7, granularity, direction));
            EXPECT_TRUE(isAt(11, granularity, direction));
            EXPECT_EQ(to(12, granularity, direction), 11);
        }
        EXPECT_EQ(around(3, granularity, forward), (TextRange{0, 7}));
        EXPECT_EQ(around(7, granularity, forward), std::nullopt);
        EXPECT_EQ(around(7, granularity, backward), (TextRange{0, 7}));
        EXPECT_FALSE(isAt(7, granularity, up));
        EXPECT_FALSE(isAt(99, granularity, forward));
        EXPECT_EQ(to(-1, granularity, forward), -1);
    }
}

TEST_F(Tokenizer, WordsCharactersAndTheDocument) {
    using enum TextDirection;
    using enum TextGranularity;
    EXPECT_TRUE(isAt(3, word, forward));
    EXPECT_TRUE(isAt(4, word, backward));
    EXPECT_FALSE(isAt(2, word, forward));
    EXPECT_EQ(to(1, word, right), 3);
    EXPECT_EQ(to(1, word, left), 0);
    EXPECT_EQ(to(12, word, right), -1);
    EXPECT_EQ(around(7, word, forward), (TextRange{7, 2}));
    EXPECT_EQ(to(7, character, forward), 9);
    EXPECT_EQ(to(0, character, backward), -1);
    EXPECT_FALSE(isAt(8, character, forward));
    EXPECT_TRUE(isAt(9, character, forward));
    EXPECT_EQ(around(5, document, backward), (TextRange{0, 12}));
    EXPECT_TRUE(isAt(12, document, forward));
}

} // namespace
