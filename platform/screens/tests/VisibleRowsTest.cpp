#include "platform/screens/list/VisibleRows.h"

#include "platform/screens/list/RowContent.h"

#include <QtGui/QStandardItemModel>
#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace platform;

namespace {

using RowStyle = ListView::RowStyle;

struct Placed {
    QModelIndex index;
    int top = 0;
    int height = 0;
};

// Lays everything out one by one.
class Oracle {
public:
    Oracle(const QAbstractItemModel& model, const std::set<QPersistentModelIndex>& open,
           const VisibleRows::Metrics& metrics)
        : m_model(model)
        , m_open(open)
        , m_metrics(metrics)
        , m_y(metrics.top) {
        bool isInCard = false;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row, 0);
            const auto style = static_cast<RowStyle>(index.data(ListView::StyleRole).toInt());
            if (style != RowStyle::Row && isInCard) endCard();
            if (style == RowStyle::Row && !isInCard) m_cardTop = m_y;
            isInCard = style == RowStyle::Row;
            place(index, style);
            if (isInCard) continue;
            m_cardTop = m_y;
            placeBelow(index, style);
            if (m_y > m_cardTop) endCard();
        }
        if (isInCard) cards.push_back({m_cardTop, m_y});
        height = m_y + metrics.bottom;
    }

    std::vector<Placed> rows;
    std::vector<VisibleRows::Card> cards;
    int height = 0;

private:
    void endCard() {
        cards.push_back({m_cardTop, m_y});
        m_y += m_metrics.gap;
    }

    void place(const QModelIndex& index, RowStyle style) {
        const int rowHeight = style == RowStyle::Header          ? m_metrics.header
                              : style == RowStyle::SectionHeader ? m_metrics.sectionHeader
                                                                 : m_metrics.row;
        rows.push_back({index, m_y, rowHeight});
        m_y += rowHeight;
        if (style == RowStyle::Row) placeBelow(index, style);
    }

    void placeBelow(const QModelIndex& index, RowStyle style) {
        if (style != RowStyle::SectionHeader && !m_open.contains(index)) return;
        for (int row = 0; row < m_model.rowCount(index); ++row)
            place(m_model.index(row, 0, index), RowStyle::Row);
    }

    const QAbstractItemModel& m_model;
    const std::set<QPersistentModelIndex>& m_open;
    VisibleRows::Metrics m_metrics;
    int m_y;
    int m_cardTop = 0;
};

class VisibleRowsTest : public ::testing::Test {
protected:
    QStandardItem* makeItem(int depth) {
        auto item = std::make_unique<QStandardItem>();
        if (depth < 3)
            for (auto below = random() % 5; below > 0; --below)
                item->appendRow(makeItem(depth + 1));
        return item.release(); // its parent's or the model's
    }

    void fill() {
        open.clear();
        model.clear();
        for (auto row = random() % 8; row > 0; --row) {
            model.appendRow(makeItem(0));
            model.item(model.rowCount() - 1)->setData(static_cast<int>(random() % 3), ListView::StyleRole);
        }
        all.clear();
        collect({});
        for (const auto& index : all)
            if (random() % 2) open.insert(index);
        rows.rebuild(&model, metrics, isOpen);
    }

    void collect(const QModelIndex& parent) {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            all.push_back(index);
            collect(index);
        }
    }

    void toggle() {
        if (all.empty()) return;
        const QModelIndex index = all[random() % all.size()];
        if (isSectionHeader(index)) return;
        if (open.erase(index) > 0) {
            rows.close(index);
        } else {
            open.insert(index);
            rows.open(index, isOpen);
        }
    }

    void compare() {
        const Oracle oracle(model, open, metrics);
        ASSERT_EQ(rows.count(), static_cast<int>(oracle.rows.size()));
        ASSERT_EQ(rows.height(), rows.count() > 0 ? oracle.height : 0);
        for (int ordinal = 0; ordinal < rows.count(); ++ordinal) {
            const Placed& placed = oracle.rows[static_cast<std::size_t>(ordinal)];
            ASSERT_EQ(rows.at(ordinal), placed.index);
            ASSERT_EQ(rows.ordinalOf(placed.index), ordinal);
            const auto row = rows.rowOf(placed.index);
            ASSERT_TRUE(row);
            ASSERT_EQ(row->top, placed.top);
            ASSERT_EQ(row->height, placed.height);
            ASSERT_EQ(rows.indexAt(placed.top), placed.index);
            ASSERT_EQ(rows.indexAt(placed.top + placed.height - 1), placed.index);
        }
        for (const auto& index : all) {
            const bool isVisible = std::ranges::find(oracle.rows, index, &Placed::index) != oracle.rows.end();
            ASSERT_EQ(rows.ordinalOf(index) >= 0, isVisible);
        }
        compareStretch(oracle, 0, oracle.height);
        const int from = static_cast<int>(random() % static_cast<unsigned>(oracle.height));
        compareStretch(oracle, from, from + 150);
    }

    void compareStretch(const Oracle& oracle, int from, int to) {
        std::vector<QModelIndex> expected;
        for (const auto& row : oracle.rows)
            if (row.top < to && row.top + row.height > from) expected.push_back(row.index);
        std::vector<QModelIndex> found;
        for (const auto& row : rows.rowsBetween(from, to))
            found.push_back(row.index);
        ASSERT_EQ(found, expected);
        std::vector<VisibleRows::Card> cards;
        for (const auto& card : oracle.cards)
            if (card.top < to && card.bottom > from) cards.push_back(card);
        auto seen = rows.cardsBetween(from, to);
        std::erase_if(seen, [&](const auto& card) { return card.bottom <= from || card.top >= to; });
        ASSERT_EQ(seen.size(), cards.size());
        for (std::size_t i = 0; i < cards.size(); ++i) {
            ASSERT_EQ(std::max(seen[i].top, from), std::max(cards[i].top, from));
            ASSERT_EQ(std::min(seen[i].bottom, to), std::min(cards[i].bottom, to));
        }
    }

    std::mt19937 random;
    QStandardItemModel model;
    std::vector<QModelIndex> all;
    std::set<QPersistentModelIndex> open;
    VisibleRows::IsOpen isOpen = [this](const QModelIndex& index) {
        return isSectionHeader(index) || open.contains(index);
    };
    VisibleRows::Metrics metrics;
    VisibleRows rows;
};

TEST_F(VisibleRowsTest, StandWhereANaiveLayoutPutsThem) {
    for (unsigned seed = 0; seed < 150; ++seed) {
        SCOPED_TRACE(seed);
        random.seed(seed);
        fill();
        for (int step = 0; step < 20; ++step) {
            compare();
            if (HasFatalFailure()) return;
            toggle();
        }
    }
}

TEST_F(VisibleRowsTest, RowsOnTheirWayTakeTheRoomThatIsUncovered) {
    for (int header = 0; header < 2; ++header) {
        auto* item = makeItem(3);
        item->setData(static_cast<int>(RowStyle::Header), ListView::StyleRole);
        for (int i = 0; i < 10; ++i)
            item->appendRow(makeItem(3));
        model.appendRow(item);
    }
    const QModelIndex first = model.index(0, 0);
    open.insert(first);
    rows.rebuild(&model, metrics, isOpen);
    const int below = metrics.top + metrics.header;
    rows.slide(first, SlideWay::Opening, 0.5, 200); // the lower rows lie out of view anyway
    EXPECT_EQ(rows.rowOf(model.index(1, 0))->top, below + 100 + metrics.gap);
    EXPECT_EQ(rows.rowsBetween(below, below + 100).size(), 3U);
    EXPECT_EQ(rows.rowsBetween(below, below + 100).back().clipBottom, below + 100);
    EXPECT_EQ(rows.rowOf(first)->openness, 0.5);
    EXPECT_EQ(rows.cardsBetween(0, 1000).front().bottom, below + 100);
    EXPECT_EQ(rows.count(), 12);
    rows.slide(first, SlideWay::Closing, 0.5, 200);
    EXPECT_EQ(rows.count(), 2); // none to go to any more
    EXPECT_EQ(rows.at(1), model.index(1, 0));
    EXPECT_EQ(rows.ordinalOf(model.index(0, 0, first)), -1);
    EXPECT_EQ(rows.indexAt(below + 10), model.index(0, 0, first));
}

} // namespace
