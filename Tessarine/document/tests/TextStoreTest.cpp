#include "Tessarine/document/TextStore.h"

#include "Tessarine/document/tests/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>

using namespace tessarine;

namespace {

struct Course {
    TextStoreLimits limits;
    std::int64_t units;    // around which the text's length moves
    std::int64_t inserted; // at most, in most steps
    int steps;
};

std::ostream& operator<<(std::ostream& out, const Course& course) {
    return out << course.limits.chunkUnits << " units, " << course.limits.branchChildren << " children";
}

// One random replacement in the store and in a plain string: mostly a few units, sometimes much; growing
// while short, shrinking while long.
void edit(TextStore& store, std::u16string& model, RandomText& random, const Course& course) {
    const auto size = static_cast<std::int64_t>(model.size());
    const bool isLarge = random.upTo(49) == 0;
    const std::int64_t most = isLarge ? course.units : course.inserted;
    const std::int64_t location = random.upTo(size);
    const std::int64_t reach = random.upTo(size < course.units ? most / 2 : most);
    const std::int64_t length = std::min(size - location, reach);
    const std::u16string text = random.units(random.upTo(size > course.units ? most / 2 : most));
    store.replace(location, length, text);
    model.replace(static_cast<std::size_t>(location), static_cast<std::size_t>(length), text);
}

class TextStoreModel : public testing::TestWithParam<Course> {};

TEST_P(TextStoreModel, RandomEditsGiveTheTextOfAPlainString) {
    const Course& course = GetParam();
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        RandomText random(seed);
        std::u16string model = random.units(random.upTo(course.units));
        TextStore store(model, course.limits);
        for (int step = 0; step < course.steps; ++step) {
            edit(store, model, random, course);
            store.check();
            ASSERT_TRUE(store.text() == model) << "step " << step;
        }
    }
}

// A quarter of a million edits in all.
INSTANTIATE_TEST_SUITE_P(Sizes, TextStoreModel,
                         testing::Values(Course{{4, 4}, 60, 3, 10'000}, Course{{5, 5}, 300, 4, 10'000},
                                         Course{{8, 4}, 600, 10, 6'000}, Course{{64, 7}, 3000, 40, 4'000},
                                         Course{{}, 60'000, 300, 400}));

TEST(TextStore, EmptiesAndFillsAgain) {
    TextStore store(u"", {4, 4});
    store.replace(0, 0, u"");
    EXPECT_EQ(store.length(), 0);
    for (int round = 0; round < 2; ++round) {
        store.replace(0, 0, std::u16string(1000, u'a'));
        store.check();
        store.replace(0, 1000, u"");
        EXPECT_TRUE(store.text() == u"");
    }
    store.replace(0, 0, u"x");
    while (store.length() < 500)
        store.replace(store.length() / 2, 0, u"yz");
    while (store.length() > 0) {
        store.replace(store.length() / 2, 1, u"");
        store.check();
    }
    EXPECT_EQ(store.snapshot().memory(), 0U);
}

TEST(TextStore, TypingAndDeletingAtOnePlaceKeepsChunksFilled) {
    std::u16string model(20'000, u'-');
    TextStore store(model, {64, 8});
    for (int i = 0; i < 3000; ++i)
        store.replace(7000 + i, 0, u"k");
    model.insert(7000, std::u16string(3000, u'k'));
    store.check();
    EXPECT_TRUE(store.text() == model);
    for (int i = 0; i < 9000; ++i)
        store.replace(9999 - i, 1, u"");
    model.erase(1000, 9000);
    store.check();
    EXPECT_TRUE(store.text() == model);
}

TEST(TextStore, TakesLittleMoreThanAByteForAnAsciiCharacter) {
    RandomText random(20);
    TextStore store(std::u16string(4'000'000, u'a'));
    EXPECT_LT(static_cast<double>(store.text().memory()), 1.10 * static_cast<double>(store.length()));
    for (int i = 0; i < 100'000; ++i)
        store.replace(random.upTo(store.length() - 40), random.upTo(40), u"twenty characters ..");
    EXPECT_LT(static_cast<double>(store.text().memory()), 1.15 * static_cast<double>(store.length()));
}

TEST(TextStore, OneWideCharacterWidensItsChunkOnlyAndOnlyWhileItIsThere) {
    TextStore store(std::u16string(1'000'000, u'a'));
    const std::size_t narrow = store.text().memory();
    store.replace(500'000, 1, u"\u20AC");
    EXPECT_TRUE(store.text().runAt(500'000).isWide());
    EXPECT_LT(store.text().memory(), narrow + 10'000);
    store.replace(500'000, 1, u"\u00FF");
    EXPECT_FALSE(store.text().runAt(500'000).isWide());
    EXPECT_LE(store.text().memory(), narrow + 200);
}

TEST(TextStoreDeathTest, RangesOutsideStopTheProgram) {
    TextStore store(u"abc");
    EXPECT_DEATH(store.replace(4, 0, u""), "outside of the text");
    EXPECT_DEATH(store.replace(1, 3, u""), "outside of the text");
    EXPECT_DEATH(store.replace(1, std::numeric_limits<std::int64_t>::max(), u""), "outside of the text");
    EXPECT_DEATH(store.replace(-1, 1, u""), "outside of the text");
    EXPECT_DEATH(store.text().substring(2, 2), "outside of the text");
    EXPECT_DEATH(store.text().characterAt(3), "outside of the text");
}

} // namespace
