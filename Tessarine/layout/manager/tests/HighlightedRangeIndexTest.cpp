#include "Tessarine/layout/manager/HighlightedRangeIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace tessarine;

namespace {

HighlightedRangeIndex::Ranges randomRanges(std::mt19937& random, std::size_t count) {
    HighlightedRangeIndex::Ranges ranges;
    for (std::size_t i = 0; i < count; ++i) {
        const TextRange range{static_cast<std::int64_t>(random() % 60),
                              static_cast<std::int64_t>(random() % (random() % 5 == 0 ? 60 : 6))};
        ranges.push_back(std::make_shared<HighlightedRange>(HighlightedRange{.range = range}));
    }
    return ranges;
}

bool touches(const TextRange& a, const TextRange& b) {
    return a.length > 0 && b.length > 0 && a.location < b.limit() && b.location < a.limit();
}

TEST(HighlightedRangeIndex, FindsWhatALookAtAllFinds) {
    std::mt19937 random(7);
    for (std::size_t count = 0; count < 40; ++count) {
        const auto ranges = randomRanges(random, count);
        HighlightedRangeIndex index;
        index.setRanges(ranges);
        for (std::int64_t location = 0; location < 70; ++location) {
            const TextRange stretch{location, static_cast<std::int64_t>(random() % 12)};
            std::vector<std::string> expected;
            for (const auto& range : ranges)
                if (touches(range->range, stretch)) expected.push_back(range->id);
            std::vector<std::string> found;
            std::int64_t lastStart = -1;
            index.visit(stretch, [&](const HighlightedRange& highlighted, const TextRange& range) {
                found.push_back(highlighted.id);
                EXPECT_LE(std::exchange(lastStart, range.location), range.location);
            });
            std::ranges::sort(expected);
            std::ranges::sort(found);
            ASSERT_EQ(found, expected) << count << " ranges, from " << location;
        }
    }
}

using Found = std::vector<std::pair<std::string, std::int64_t>>;

// Edits that touch each other and edits elsewhere, against ranges that are moved one edit at a time.
TEST(HighlightedRangeIndex, RangesMoveWithEditsAndGoWhenTheyAreTouched) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        const auto ranges = randomRanges(random, 30);
        HighlightedRangeIndex index;
        index.setRanges(ranges);
        std::vector<HighlightedRange> expected;
        for (const auto& range : ranges)
            expected.push_back(*range);
        std::int64_t near = 30;
        for (int edit = 0; edit < 12; ++edit) {
            if (random() % 3 == 0) near = static_cast<std::int64_t>(random() % 60);
            const auto length = static_cast<std::int64_t>(random() % 3);
            const TextReplacement replacement{{near, length}, static_cast<std::int64_t>(random() % 3)};
            near = std::max<std::int64_t>(0, replacement.newLimit() - (random() % 2 == 0 ? 1 : 0));
            index.textDidChange(replacement);
            std::erase_if(expected, [&](HighlightedRange& range) {
                const auto& edited = replacement.range;
                if (range.range.limit() <= edited.location) return false;
                if (range.range.location < edited.limit()) return true;
                range.range.location += replacement.newLength - edited.length;
                return false;
            });
            const TextRange stretch{static_cast<std::int64_t>(random() % 50), 15};
            Found inStretch;
            for (const auto& range : expected)
                if (touches(range.range, stretch)) inStretch.emplace_back(range.id, range.range.location);
            Found found;
            index.visit(stretch, [&](const HighlightedRange& highlighted, const TextRange& range) {
                found.emplace_back(highlighted.id, range.location);
            });
            std::ranges::sort(inStretch);
            std::ranges::sort(found);
            ASSERT_EQ(found, inStretch) << "seed " << seed << ", edit " << edit;
        }
    }
}

} // namespace
