#pragma once

#include "platform/screens/list/ListView.h"

#include <memory>
#include <vector>

namespace platform {

// A row that is seen, at least in part.
struct VisibleRow {
    QModelIndex index;
    ListView::RowStyle style = ListView::RowStyle::Row;
    int depth = 0; // in its card; a header has none
    int top = 0;
    int height = 0;
    int clipBottom = 0;         // the rows that slide end here
    bool isFirstOfCard = false; // no separator above it
    double openness = 0;        // 0 closed, 1 open, between them on the way
};

// Rows on their way to be closed are visible to the eye alone.
enum class SlideWay { Opening, Closing };

// Which rows of a model stand where: those whose parents are all open, one below the other. Remembers only
// the open parents, so a hundred thousand rows below one of them cost no more than ten. All heights and
// places are pixels from the top of the first row's margin; a place in a count of rows is an ordinal.
//
// Headers and section headers stand at the top level. What is below one of them makes a card, and so do rows
// of the top level that follow each other, with everything below them.
class VisibleRows {
public:
    struct Metrics {
        int header = 52;
        int sectionHeader = 36;
        int row = 44;
        int gap = 12; // below a card
        int top = 8;
        int bottom = 16;
    };

    struct Card {
        int top = 0;
        int bottom = 0;
    };

    using IsOpen = std::function<bool(const QModelIndex&)>;

    VisibleRows();
    ~VisibleRows();

    // Reads the model anew. `isOpen` is asked of every row that may have rows below and whose parents are
    // open.
    void rebuild(const QAbstractItemModel* model, const Metrics& metrics, const IsOpen& isOpen);

    int height() const;
    int count() const;

    // None outside of the rows.
    QModelIndex at(int ordinal) const;
    // Negative for what is not visible; so are the rows that slide shut.
    int ordinalOf(const QModelIndex& index) const;

    // The row at this height, none beside the rows.
    QModelIndex indexAt(int y) const;
    // None for what is not visible; rows that slide shut are.
    std::optional<VisibleRow> rowOf(const QModelIndex& index) const;

    // The rows that reach into the stretch, top to bottom.
    std::vector<VisibleRow> rowsBetween(int from, int to) const;
    // The cards that do. One that reaches further is cut off somewhere beyond the stretch.
    std::vector<Card> cardsBetween(int from, int to) const;

    // The rows below `index` appear or go; all of them at once.
    void open(const QModelIndex& index, const IsOpen& isOpen);
    void close(const QModelIndex& index);

    // The rows below an open `index` on their way: of so many pixels of them such a part is uncovered. All
    // of them are with the part 1.
    void slide(const QModelIndex& index, SlideWay way, double part, int pixels);
    // The height that the rows below take once they are open; 0 for a closed row.
    int heightBelow(const QModelIndex& index) const;

private:
    struct Block;

    struct Child {
        int row = 0;
        std::unique_ptr<Block> block;
        int countBefore = 0; // rows below the siblings above it
        int heightBefore = 0;
    };

    struct Found {
        Block* block = nullptr;
        int row = 0;
        int blockTop = 0;
        int clipBottom = 0;
    };

    std::unique_ptr<Block> makeBlock(const QModelIndex& parent, int depth, const IsOpen& isOpen) const;
    void placeTopLevel(Block& block) const;
    void settle(Block& block) const;
    ListView::RowStyle styleOf(const Block& block, int row) const;
    int heightOf(const Block& block, int row) const;
    VisibleRow rowAt(const Found& found) const;
    Found find(const QModelIndex& index) const;
    void collect(Block& block, int top, int clipBottom, int from, int to,
                 std::vector<VisibleRow>& rows) const;
    // Of the rows below an open one; null for others.
    Block* blockBelow(const QModelIndex& index) const;
    static std::vector<int> pathOf(const QModelIndex& index);
    void settleAll();

    const QAbstractItemModel* m_model = nullptr;
    Metrics m_metrics;
    std::unique_ptr<Block> m_root;
};

} // namespace platform
