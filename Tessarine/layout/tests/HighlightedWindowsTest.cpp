#include "Tessarine/layout/HighlightedWindows.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

constexpr std::int64_t w = HighlightedWindows::windowLength;

TEST(HighlightedWindows, TellsTheHullOfThoseThatAreMissing) {
    HighlightedWindows windows;
    EXPECT_EQ(windows.missing({0, 1}, 10 * w + 3), (TextRange{0, w}));
    EXPECT_EQ(windows.missing({w - 1, 2}, 10 * w + 3), (TextRange{0, 2 * w}));
    EXPECT_EQ(windows.missing({w, 0}, 10 * w + 3), (TextRange{w, w}));
    EXPECT_EQ(windows.missing({10 * w + 1, 2}, 10 * w + 3), (TextRange{10 * w, 3}));
    windows.add({2 * w, w}, 10 * w + 3);
    EXPECT_EQ(windows.missing({2 * w, w}, 10 * w), std::nullopt);
    EXPECT_EQ(windows.missing({w, 2 * w}, 10 * w), (TextRange{w, w}));
    EXPECT_EQ(windows.missing({w, 3 * w}, 10 * w), (TextRange{w, 3 * w}));
    windows.add({4 * w - 1, w + 2}, 10 * w + 3);
    EXPECT_EQ(windows.missing({3 * w, 3 * w}, 10 * w), (TextRange{3 * w, 3 * w})) << "of two a part alone";
    EXPECT_EQ(windows.missing({4 * w, w}, 10 * w), std::nullopt);
    windows.add({5 * w + 1, w - 2}, 10 * w + 3);
    EXPECT_NE(windows.missing({5 * w + 1, 1}, 10 * w), std::nullopt);
    windows.add({10 * w, 3}, 10 * w + 3);
    EXPECT_EQ(windows.missing({10 * w + 2, 1}, 10 * w + 3), std::nullopt);
    windows.clear();
    EXPECT_EQ(windows.missing({2 * w, w}, 10 * w), (TextRange{2 * w, w}));
}

} // namespace
