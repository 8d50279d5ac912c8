#include "Tessarine/syntax/EditedRange.h"

#include "Tessarine/syntax/tests/RandomSource.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

// A text of lines whose every unit knows where it stood at first, edited as the model of what edits tell.
class ModelText {
public:
    explicit ModelText(RandomSource& random)
        : m_random(random) {
        for (std::int64_t i = 0; i < 60; ++i)
            m_units.push_back({random.below(6) == 0, i});
    }

    // Of the units in [location, location + length) with new ones.
    TreeSitterInputEdit replace(std::int64_t location, std::int64_t length, std::int64_t count) {
        const auto startPoint = pointAt(location);
        const auto oldEndPoint = pointAt(location + length);
        const auto start = m_units.begin() + location;
        const auto at = m_units.erase(start, start + length) - m_units.begin();
        for (std::int64_t i = 0; i < count; ++i)
            m_units.insert(m_units.begin() + at, {m_random.below(4) == 0, -1});
        return {.startByte = 2 * location,
                .oldEndByte = 2 * (location + length),
                .newEndByte = 2 * (location + count),
                .startPoint = startPoint,
                .oldEndPoint = oldEndPoint,
                .newEndPoint = pointAt(location + count)};
    }

    TreeSitterTextPoint pointAt(std::int64_t location) const {
        LinePosition position;
        for (std::int64_t i = 0; i < location; ++i)
            position = m_units[static_cast<std::size_t>(i)].isLineFeed
                           ? LinePosition{position.row + 1, 0}
                           : LinePosition{position.row, position.column + 1};
        return TreeSitterTextPoint(position);
    }

    TreeSitterTextRange range(std::int64_t location, std::int64_t limit) const {
        return TreeSitterTextRange({pointAt(location).rawValue(), pointAt(limit).rawValue(),
                                    static_cast<std::uint32_t>(2 * location),
                                    static_cast<std::uint32_t>(2 * limit)});
    }

    std::int64_t length() const { return static_cast<std::int64_t>(m_units.size()); }

    // Where the unit stands that stood there at first, or nothing.
    std::optional<std::int64_t> locationOf(std::int64_t origin) const {
        for (std::size_t i = 0; i < m_units.size(); ++i)
            if (m_units[i].origin == origin) return static_cast<std::int64_t>(i);
        return std::nullopt;
    }

private:
    struct Unit {
        bool isLineFeed;
        std::int64_t origin;
    };

    RandomSource& m_random;
    std::vector<Unit> m_units;
};

// Ranges of units that no edit came near stand where the units are, whether the edits are coalesced or not.
TEST(EditedRange, FollowsTheTextThroughEditsAsTheyAreAndCoalesced) {
    int moved = 0;
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        RandomSource random(seed);
        ModelText text(random);
        const TreeSitterTextRange first = text.range(20, 23);
        std::vector<TreeSitterInputEdit> edits;
        std::int64_t location = random.below(text.length());
        for (int i = 0; i < 6; ++i) {
            location =
                random.below(3) == 0 ? random.below(text.length() + 1) : std::min(location, text.length());
            const std::int64_t length = random.below(std::min<std::int64_t>(3, text.length() - location) + 1);
            edits.push_back(text.replace(location, length, random.below(3)));
            location = std::max<std::int64_t>(0, location + random.below(3) - 1);
        }
        const auto few = coalesced(edits);
        EXPECT_LE(few.size(), edits.size());
        for (const auto& list : {edits, few}) {
            const auto [range, effect] = rangeAfterEdits(first, list);
            if (effect == EditEffect::touches) continue;
            ++moved;
            const auto start = text.locationOf(20);
            ASSERT_TRUE(start) << "seed " << seed;
            EXPECT_EQ(range, text.range(*start, *start + 3)) << "seed " << seed;
            const auto interval = beforeEdits({range.startByte(), range.endByte()}, list);
            EXPECT_LE(interval.first, 40) << "seed " << seed;
            EXPECT_GE(interval.last, 46) << "seed " << seed;
        }
    }
    EXPECT_GT(moved, 150);
}

TEST(EditedRange, TypingIsOneEdit) {
    RandomSource random(1);
    ModelText text(random);
    std::vector<TreeSitterInputEdit> edits;
    for (std::int64_t i = 0; i < 10; ++i)
        edits.push_back(text.replace(30 + i, 0, 1));
    edits.push_back(text.replace(35, 5, 0));
    edits.push_back(text.replace(28, 4, 2));
    const auto all = coalesced(edits);
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0].startByte, 56);
    EXPECT_EQ(all[0].oldEndByte, 60);
    EXPECT_EQ(all[0].newEndByte, 66);
    EXPECT_EQ(all[0].newEndPoint, text.pointAt(33));
}

} // namespace
