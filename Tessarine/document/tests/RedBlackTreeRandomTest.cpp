#include "Tessarine/document/tests/SampleTree.h"

#include <gtest/gtest.h>

#include <random>

using namespace tessarine;

namespace {

// A tree beside a plain list of the same nodes.
class TreeAndList {
public:
    explicit TreeAndList(unsigned seed)
        : m_random(seed)
        , m_tree(SampleTree::create(0, 0, {}))
        , m_list{{SampleReference(&m_tree->root()), 0}} {}

    // Grows towards `size` and then stays around it.
    void edit(std::size_t size) {
        const std::size_t at = below(m_list.size());
        const std::size_t choice = below(m_list.size() < size ? 5 : 9);
        if (choice < 3)
            insert(at);
        else if (choice == 3)
            setValue(at);
        else if (choice == 4 && below(50) == 0)
            rebuild();
        else if (m_list.size() > 1)
            remove(at);
    }

    void compareAll() {
        ASSERT_EQ(m_tree->check(), std::nullopt);
        std::int64_t location = 0;
        auto nodes = m_tree->iterator();
        for (std::size_t index = 0; index < m_list.size(); ++index) {
            ASSERT_EQ(nodes.next(), m_list[index].node.get()) << "at " << index;
            ASSERT_NO_FATAL_FAILURE(compare(index, location));
            location += m_list[index].value;
        }
        ASSERT_EQ(nodes.next(), nullptr);
        ASSERT_EQ(m_tree->root().nodeTotalValue(), location);
    }

    // One location and one index, against a walk along the list.
    void compareSomewhere() {
        const std::int64_t total = m_tree->root().nodeTotalValue();
        const auto location = static_cast<std::int64_t>(below(static_cast<std::size_t>(total) + 1));
        std::size_t index = 0;
        std::int64_t start = 0;
        while (index + 1 < m_list.size() && (start + m_list[index].value <= location || location == total))
            start += m_list[index++].value;
        const SampleTree::NodePosition expected{start, static_cast<std::int64_t>(index), location - start,
                                                m_list[index].value};
        ASSERT_EQ(m_tree->nodePosition(location), expected);
        ASSERT_EQ(m_tree->nodeContainingLocation(location), m_list[index].node.get());
    }

    // Nodes that have left the tree, and all once the tree is gone.
    void compareOutlived() {
        for (const Entry& entry : m_removed)
            ASSERT_TRUE(entry.node->value() == entry.value && !entry.node->parent());
        m_tree.reset();
        for (const Entry& entry : m_list)
            ASSERT_EQ(entry.node->value(), entry.value);
    }

private:
    struct Entry {
        SampleReference node;
        std::int64_t value;
    };

    std::size_t below(std::size_t limit) { return m_random() % limit; }

    std::int64_t someValue() { return static_cast<std::int64_t>(below(5)); }

    void insert(std::size_t at) {
        const std::int64_t value = someValue();
        const auto place = m_list.begin() + static_cast<std::ptrdiff_t>(at);
        const SampleReference node = m_tree->insertNodeAfter(value, {}, *place->node);
        m_list.insert(place + 1, {node, value});
    }

    void setValue(std::size_t at) {
        m_list[at].value = someValue();
        m_list[at].node->setValue(m_list[at].value);
        m_tree->updateAggregates(*m_list[at].node);
    }

    void remove(std::size_t at) {
        const auto place = m_list.begin() + static_cast<std::ptrdiff_t>(at);
        if (below(2) == 0) m_removed.push_back(*place);
        SampleNode& node = *place->node;
        m_list.erase(place);
        // The list has let go: from here on the tree alone may hold the node.
        m_tree->removeNode(node);
    }

    void rebuild() {
        std::vector<SampleReference> nodes;
        for (Entry& entry : m_list)
            nodes.push_back(entry.node = m_tree->makeNode(entry.value, {}));
        m_tree->rebuildBalanced(nodes);
    }

    void compare(std::size_t index, std::int64_t location) {
        SampleNode& node = *m_list[index].node;
        ASSERT_EQ(node.value(), m_list[index].value);
        ASSERT_EQ(node.location(), location);
        ASSERT_EQ(node.index(), static_cast<std::int64_t>(index));
        ASSERT_EQ(&m_tree->nodeAtIndex(static_cast<std::int64_t>(index)), &node);
        if (index == 0) return;
        ASSERT_EQ(&node.previousNode(), m_list[index - 1].node.get());
        ASSERT_EQ(&m_list[index - 1].node->nextNode(), &node);
    }

    std::mt19937_64 m_random;
    std::shared_ptr<SampleTree> m_tree;
    std::vector<Entry> m_list;
    std::vector<Entry> m_removed;
};

void runEdits(unsigned seed, std::size_t size, int steps, int stepsBetweenChecks) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    TreeAndList both(seed);
    for (int step = 0; step < steps; ++step) {
        both.edit(size);
        ASSERT_NO_FATAL_FAILURE(both.compareSomewhere()) << "step " << step;
        if (step % stepsBetweenChecks != 0) continue;
        ASSERT_NO_FATAL_FAILURE(both.compareAll()) << "step " << step;
    }
    both.compareOutlived();
}

TEST(RedBlackTreeRandom, SmallTreesAreTheirList) {
    for (unsigned seed = 1; seed <= 100; ++seed)
        ASSERT_NO_FATAL_FAILURE(runEdits(seed, 1 + seed % 40, 500, 1));
}

TEST(RedBlackTreeRandom, LargeTreesAreTheirList) {
    for (unsigned seed = 1; seed <= 3; ++seed)
        ASSERT_NO_FATAL_FAILURE(runEdits(seed, 3'000, 20'000, 2'000));
}

} // namespace
