#include "Tessarine/document/LineChangeSet.h"

#include "Tessarine/document/LineManager.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace tessarine;

namespace {

TEST(LineChangeSet, MarksOfALineOverruleEachOther) {
    const LineManager manager(std::make_shared<StringView>());
    DocumentLineNode& line = manager.lineAtRow(0);
    LineChangeSet changes;
    changes.markLineEdited(line);
    EXPECT_TRUE(changes.editedLines().contains(line));
    changes.markLineInserted(line);
    changes.markLineEdited(line);
    EXPECT_TRUE(changes.insertedLines().contains(line));
    EXPECT_TRUE(changes.editedLines().isEmpty());
    changes.markLineRemoved(line);
    changes.markLineEdited(line);
    EXPECT_TRUE(changes.removedLines().contains(line));
    EXPECT_TRUE(changes.insertedLines().isEmpty() && changes.editedLines().isEmpty());
    LineChangeSet others;
    others.markLineInserted(line);
    changes.unionWith(others);
    EXPECT_TRUE(changes.insertedLines().contains(line) && changes.removedLines().contains(line));
}

// Sizes around the border between the small and the large form, and serials that share their buckets.
TEST(LineSet, IsASet) {
    LineManager manager(std::make_shared<StringView>());
    manager.rebuild(std::u16string(20'000, u'\n'));
    for (unsigned seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        const unsigned stride = seed % 2 == 0 ? 1 : 64;
        LineSet set;
        std::set<const DocumentLineNode*> model;
        for (int step = 0; step < 600; ++step) {
            DocumentLineNode& line = manager.lineAtRow(random() % (2 + 5 * seed) * stride);
            if (random() % 5 < 3)
                ASSERT_EQ(set.insert(line), model.insert(&line).second) << "seed " << seed;
            else
                ASSERT_EQ(set.remove(line), model.erase(&line) == 1) << "seed " << seed;
            std::set<const DocumentLineNode*> members;
            for (const DocumentLineNodeReference& member : set)
                members.insert(member.get());
            ASSERT_EQ(members, model) << "seed " << seed << ", step " << step;
            ASSERT_EQ(set.size(), model.size());
        }
    }
}

TEST(LineSet, KeepsItsLinesAlive) {
    LineSet set;
    {
        LineManager manager(std::make_shared<StringView>());
        manager.rebuild(u"ab\ncde\n");
        for (int row = 0; row < 3; ++row)
            set.insert(manager.lineAtRow(row));
    }
    EXPECT_EQ((*set.begin())->value(), 3);
}

} // namespace
