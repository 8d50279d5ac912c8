#include "Tessarine/layout/manager/LineWidths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

using namespace tessarine;

namespace {

TEST(LineWidths, TellWhenTheWidestLineChanges) {
    LineWidths widths;
    const DocumentLineNodeID first;
    const DocumentLineNodeID second;
    EXPECT_EQ(widths.widest(), std::nullopt);
    EXPECT_TRUE(widths.set(first, 100));
    EXPECT_FALSE(widths.set(first, 100));
    EXPECT_EQ(widths.widest(), 100);
    EXPECT_FALSE(widths.set(second, 50));
    EXPECT_TRUE(widths.set(second, 120));
    EXPECT_EQ(widths.widest(), 120);
    EXPECT_FALSE(widths.remove(first));
    EXPECT_TRUE(widths.remove(second));
    EXPECT_EQ(widths.widest(), std::nullopt);
}

// Also when the widest one shrinks below another that has been laid out before.
TEST(LineWidths, AreThoseOfAPlainMap) {
    std::mt19937 random(1);
    const std::vector<DocumentLineNodeID> lines(8);
    LineWidths widths;
    std::map<std::size_t, double> plain;
    for (int step = 0; step < 5'000; ++step) {
        const std::size_t line = random() % lines.size();
        if (random() % 4 == 0) {
            widths.remove(lines[line]);
            plain.erase(line);
        } else {
            plain[line] = static_cast<double>(random() % 20);
            widths.set(lines[line], plain[line]);
        }
        if (random() % 2 == 0) continue;
        const auto widest =
            std::ranges::max_element(plain, {}, [](const auto& entry) { return entry.second; });
        ASSERT_EQ(widths.widest().value_or(-1), plain.empty() ? -1 : widest->second) << "step " << step;
    }
}

} // namespace
