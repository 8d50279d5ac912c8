#include "Tessarine/document/TextCursor.h"
#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/tests/RandomText.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

using namespace tessarine;

namespace {

constexpr TextStoreLimits small{8, 4};

TEST(TextSnapshot, ReadsEveryRangeAsAPlainStringDoes) {
    RandomText random(3);
    const std::u16string model = random.units(400);
    const TextStore store(model, small);
    const TextSnapshot& text = store.text();
    TextCursor cursor(text);
    for (std::int64_t location = 0; location < 400; ++location) {
        ASSERT_EQ(text.characterAt(location), model[location]);
        ASSERT_EQ(cursor.at(location), model[location]);
        ASSERT_EQ(cursor.at(399 - location), model[399 - location]);
        for (std::int64_t length = 0; length <= std::min<std::int64_t>(40, 400 - location); ++length)
            ASSERT_EQ(text.substring(location, length), model.substr(location, length));
    }
}

TEST(TextSnapshot, RunsCoverARangeWithoutGapsAndLieInTheText) {
    RandomText random(4);
    const std::u16string model = random.units(300);
    const TextStore store(model, small);
    std::int64_t at = 17;
    for (const TextRun& run : store.text().runs(17, 250)) {
        ASSERT_EQ(run.location(), at);
        ASSERT_GT(run.size(), 0);
        for (; at < run.limit(); ++at)
            ASSERT_EQ(run.at(at), model[at]);
        EXPECT_EQ(store.text().runAt(run.location()).at(run.location()), model[run.location()]);
    }
    EXPECT_EQ(at, 267);
    EXPECT_TRUE(store.text().runs(300, 0).begin() == store.text().runs(300, 0).end());
}

TEST(TextSnapshot, EqualityTellsEveryUnit) {
    RandomText random(5);
    const std::u16string model = random.units(100);
    const TextStore store(model, small);
    EXPECT_TRUE(store.text() == model);
    EXPECT_FALSE(store.text() == model + u'x');
    EXPECT_FALSE(store.text() == std::u16string_view(model).substr(1));
    for (std::size_t i = 0; i < model.size(); ++i) {
        std::u16string other = model;
        other[i] = static_cast<char16_t>(other[i] ^ 0x100);
        EXPECT_FALSE(store.text() == other) << i;
    }
}

// Every kept snapshot stays as it was, through edits that reuse, copy, split and join what it shares.
TEST(TextSnapshot, StaysAsItWasWhileTheStoreChanges) {
    for (std::uint32_t seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        RandomText random(seed);
        std::u16string model = random.units(500);
        TextStore store(model, small);
        std::vector<std::pair<TextSnapshot, std::u16string>> kept;
        for (int step = 0; step < 1000; ++step) {
            if (random.upTo(3) == 0) {
                kept.insert(kept.begin() + random.upTo(std::ssize(kept)), {store.snapshot(), model});
                if (kept.size() > 6) kept.pop_back();
            }
            const std::int64_t location = random.upTo(std::ssize(model));
            const std::int64_t length = std::min<std::int64_t>(random.upTo(20), std::ssize(model) - location);
            const std::u16string text = random.units(random.upTo(20));
            store.replace(location, length, text);
            model.replace(location, length, text);
            store.check();
            ASSERT_TRUE(store.text() == model);
            for (const auto& [snapshot, then] : kept)
                ASSERT_TRUE(snapshot == then) << "step " << step;
        }
    }
}

TEST(TextSnapshot, IsReadAndDroppedOnOtherThreadsWhileTheStoreChanges) {
    RandomText random(7);
    std::u16string model = random.units(4000);
    TextStore store(model, {32, 4});
    for (int round = 0; round < 30; ++round) {
        std::array<bool, 2> agrees{};
        const auto read = [&store, &model](bool& result) {
            return std::jthread([snapshot = store.snapshot(), then = model, &result]() mutable {
                const TextSnapshot copy = snapshot;
                result = snapshot == then && copy.substring(0, copy.length()) == then;
                snapshot = {};
            });
        };
        std::jthread first = read(agrees[0]);
        std::jthread second = read(agrees[1]);
        for (int step = 0; step < 200; ++step) {
            const std::int64_t location = random.upTo(std::ssize(model) - 5);
            const std::u16string text = random.units(5);
            store.replace(location, 5, text);
            model.replace(location, 5, text);
        }
        first.join();
        second.join();
        EXPECT_TRUE(agrees[0] && agrees[1]) << "round " << round;
        EXPECT_TRUE(store.text() == model);
    }
}

} // namespace
