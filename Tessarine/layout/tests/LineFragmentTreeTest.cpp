#include "Tessarine/layout/LineFragmentTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Rows of 10 units; the heights are given.
LineFragments rowsOf(std::initializer_list<double> heights, std::int64_t first = 0, double y = 0) {
    LineFragments fragments;
    std::int64_t index = first;
    for (const double height : heights) {
        LineFragment fragment;
        fragment.index = index;
        fragment.range = {index * 10, 10};
        fragment.scaledSize.height = height;
        fragment.yPosition = y;
        fragments.push_back(std::make_shared<const LineFragment>(fragment));
        y += height;
        ++index;
    }
    return fragments;
}

std::vector<std::int64_t> indicesOf(const LineFragments& fragments) {
    std::vector<std::int64_t> indices;
    for (const LineFragmentReference& fragment : fragments)
        indices.push_back(fragment->index);
    return indices;
}

TEST(LineFragmentTree, FindsRowsByHeight) {
    LineFragmentTree tree;
    EXPECT_THAT(tree.lineFragmentsInFrame(0, 1'000), IsEmpty());
    tree.enter(rowsOf({10, 20, 30, 40, 50}));
    EXPECT_EQ(tree.check(), std::nullopt);
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(11, 29)), ElementsAre(1));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(10, 30)), ElementsAre(0, 1, 2));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(61, 61)), ElementsAre(3));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(-5, 0)), ElementsAre(0));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(-5, 1'000)), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(151, 1'000)), IsEmpty());
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(30, 20)), IsEmpty());
}

TEST(LineFragmentTree, FindsRowsByText) {
    LineFragmentTree tree;
    tree.enter(rowsOf({10, 20, 30, 40, 50}));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInRange({10, 10})), ElementsAre(1));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInRange({19, 12})), ElementsAre(1, 2, 3));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInRange({0, 1'000})), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(indicesOf(tree.lineFragmentsInRange({50, 10})), IsEmpty());
}

TEST(LineFragmentTree, TakesRowsInPlaceOfOthersAndLosesTheLast) {
    LineFragmentTree tree;
    tree.enter(rowsOf({10, 20}));
    tree.enter(rowsOf({25, 30, 40}, 1, 10));
    EXPECT_EQ(tree.check(), std::nullopt);
    EXPECT_EQ(tree.tree().root().nodeTotalCount(), 4);
    EXPECT_EQ(tree.tree().root().nodeTotalValue(), 40);
    tree.keepFirst(9);
    tree.keepFirst(2);
    EXPECT_EQ(tree.check(), std::nullopt);
    EXPECT_THAT(indicesOf(tree.lineFragmentsInFrame(0, 1'000)), ElementsAre(0, 1));
    tree.keepFirst(0);
    EXPECT_EQ(tree.tree().root().nodeTotalCount(), 1);
    EXPECT_EQ(tree.tree().root().nodeTotalValue(), 0);
    EXPECT_THAT(tree.lineFragmentsInFrame(0, 1'000), IsEmpty());
}

} // namespace
