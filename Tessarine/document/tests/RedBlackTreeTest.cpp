#include "Tessarine/document/ClosedRangeValueSearchQuery.h"
#include "Tessarine/document/tests/SampleTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unordered_set>

using namespace tessarine;
using testing::ElementsAre;

namespace {

// A tree of nodes with these values, balanced.
std::shared_ptr<SampleTree> treeOf(std::vector<std::int64_t> values) {
    auto tree = SampleTree::create(0, 0, {});
    std::vector<SampleReference> nodes;
    for (const std::int64_t value : values)
        nodes.push_back(tree->makeNode(value, {}));
    tree->rebuildBalanced(nodes);
    return tree;
}

std::vector<std::int64_t> valuesOf(SampleTree& tree) {
    std::vector<std::int64_t> values;
    auto nodes = tree.iterator();
    while (const SampleNode* node = nodes.next())
        values.push_back(node->value());
    return values;
}

TEST(RedBlackTree, OneEmptyNodeHoldsLocationZeroOnly) {
    const auto tree = SampleTree::create(0, 0, {});
    EXPECT_EQ(tree->nodeContainingLocation(0), &tree->root());
    EXPECT_EQ(tree->nodeContainingLocation(1), nullptr);
    EXPECT_EQ(tree->nodeContainingLocation(-1), nullptr);
    EXPECT_EQ(tree->nodePosition(1), std::nullopt);
    EXPECT_EQ(tree->root().color(), RedBlackTreeNodeColor::black);
}

TEST(RedBlackTree, ABoundaryBelongsToTheLaterNodeAndTheEndToTheLast) {
    const auto tree = treeOf({2, 0, 3, 0});
    EXPECT_EQ(tree->nodePosition(1), (SampleTree::NodePosition{0, 0, 1, 2}));
    EXPECT_EQ(tree->nodePosition(2), (SampleTree::NodePosition{2, 2, 0, 3})); // not the empty node
    EXPECT_EQ(tree->nodePosition(5), (SampleTree::NodePosition{5, 3, 0, 0}));
    const auto match = tree->matchContainingLocation(4);
    EXPECT_EQ(match->location, 2);
    EXPECT_EQ(match->value, 5); // the end
}

TEST(RedBlackTree, NeighboursEndAtTheRoot) {
    const auto tree = treeOf({1, 2, 3});
    EXPECT_EQ(&tree->nodeAtIndex(0).nextNode(), &tree->nodeAtIndex(1));
    EXPECT_EQ(&tree->lastNode().previousNode(), &tree->nodeAtIndex(1));
    EXPECT_EQ(&tree->lastNode().nextNode(), &tree->root());
    EXPECT_EQ(&tree->firstNode().previousNode(), &tree->root());
    const auto single = SampleTree::create(0, 7, {});
    EXPECT_EQ(&single->root().nextNode(), &single->root());
}

TEST(RedBlackTree, TheSuccessorTakesPlaceAndColourOfARemovedNode) {
    const auto tree = treeOf({1, 2, 3, 4, 5, 6, 7});
    const SampleReference removed(&tree->root());
    SampleNode& successor = removed->nextNode();
    const SampleNode* left = removed->left();
    tree->removeNode(*removed);
    EXPECT_EQ(&tree->root(), &successor);
    EXPECT_EQ(successor.left(), left);
    EXPECT_EQ(successor.color(), RedBlackTreeNodeColor::black);
    EXPECT_EQ(removed->parent(), nullptr);
    EXPECT_EQ(removed->left(), nullptr);
    EXPECT_EQ(tree->check(), std::nullopt);
    EXPECT_THAT(valuesOf(*tree), ElementsAre(1, 2, 3, 5, 6, 7));
}

TEST(RedBlackTree, ARebuiltTreeIsRedOnlyAtItsDeepestLevel) {
    const auto tree = treeOf({1, 2, 3, 4, 5});
    EXPECT_EQ(tree->root().value(), 3);
    EXPECT_EQ(tree->root().left()->color(), RedBlackTreeNodeColor::black);
    EXPECT_EQ(tree->root().left()->left()->color(), RedBlackTreeNodeColor::red);
    EXPECT_EQ(treeOf({9})->root().color(), RedBlackTreeNodeColor::black);
}

TEST(RedBlackTree, ARangeQueryFindsWhatStartsInOrReachesInto) {
    const auto tree = treeOf({2, 3, 0, 4, 5, 6}); // starts 0 2 5 5 9 14
    ClosedRangeValueSearchQuery<SampleID, std::int64_t, SampleData> query({4, 9});
    std::vector<std::int64_t> locations;
    for (const auto& match : tree->searchNodes(query)) {
        locations.push_back(match.location);
        EXPECT_EQ(match.location, match.node->location());
        EXPECT_EQ(match.value, match.location + match.node->value());
    }
    EXPECT_THAT(locations, ElementsAre(2, 5, 5, 9));
    EXPECT_FALSE(query.cachedNodeLocations.contains(tree->firstNode().id())); // its subtree was not wanted
}

TEST(RedBlackTree, IdentitiesAreFreshAndHash) {
    const auto tree = treeOf(std::vector<std::int64_t>(10'000, 1));
    std::unordered_set<SampleReference> nodes;
    auto all = tree->iterator();
    while (SampleNode* node = all.next())
        EXPECT_TRUE(nodes.emplace(node).second);
    EXPECT_EQ(NodeIdentity().upperHalf(), NodeIdentity().upperHalf());
    EXPECT_TRUE(nodes.contains(SampleReference(&tree->nodeAtIndex(77))));
}

TEST(RedBlackTree, NodesOutliveTheirTree) {
    auto tree = treeOf(std::vector<std::int64_t>(1'000, 3));
    const SampleReference kept(&tree->nodeAtIndex(500));
    auto nodes = tree->iterator();
    const std::weak_ptr<SampleTree> watched = tree;
    tree.reset();
    EXPECT_FALSE(watched.expired()); // the iterator still needs it
    nodes = SampleTree::create(0, 0, {})->iterator();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(kept->value(), 3);
    EXPECT_EQ(kept->parent(), nullptr);
}

TEST(RedBlackTree, AMillionNodesComeAndGo) {
    auto tree = treeOf(std::vector<std::int64_t>(1'000'000, 1));
    EXPECT_EQ(tree->check(), std::nullopt);
    EXPECT_EQ(tree->nodeAtIndex(765'432).location(), 765'432);
    const SampleReference kept(&tree->root());
    tree.reset();
    EXPECT_EQ(kept->left()->parent(), kept.get()); // it still owns its children
}

TEST(RedBlackTree, ANodeDescribesItself) {
    EXPECT_EQ(treeOf({2, 3, 4})->nodeAtIndex(1).description(),
              "[RedBlackTreeNode index=1 location=2 nodeTotalCount=3]");
}

TEST(RedBlackTreeDeathTest, BrokenRulesStopTheProgram) {
    auto tree = treeOf({1, 2, 3});
    EXPECT_DEATH(tree->nodeAtIndex(3), "no node at this index");
    EXPECT_DEATH(tree->nodeAtIndex(-1), "no node at this index");
    EXPECT_DEATH(tree->rebuildBalanced({}), "built of no nodes");
    EXPECT_DEATH(tree->insertNodeAfter(INT64_MAX, {}, tree->root()), "overflows");
    const auto single = SampleTree::create(0, 0, {});
    EXPECT_DEATH(single->removeNode(single->root()), "can't be removed");
    const SampleReference kept(&tree->root());
    tree.reset();
    EXPECT_DEATH(kept->location(), "Fatal error: Accessing tree after it has been deallocated\\.");
    EXPECT_DEATH(kept->index(), "Accessing tree after it has been deallocated\\.");
}

} // namespace
