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
            index.visit(stretch, [&](const HighlightedRange& range) {
                found.push_back(range.id);
                EXPECT_LE(std::exchange(lastStart, range.range.location), range.range.location);
            });
            std::ranges::sort(expected);
            std::ranges::sort(found);
            ASSERT_EQ(found, expected) << count << " ranges, from " << location;
        }
    }
}

} // namespace
