#include "platform/screens/list/VisibleRows.h"

#include <algorithm>

namespace platform {

using RowStyle = ListView::RowStyle;

// The rows below one open parent.
struct VisibleRows::Block {
    QModelIndex parent;
    int depth = -1; // of its rows; the top level has none
    int rows = 0;
    int rowHeight = 0;
    std::vector<RowStyle> styles; // of the top level, whose rows differ
    std::vector<int> tops;        // likewise, and where the last one ends
    std::vector<Child> open;      // by row

    SlideWay way = SlideWay::Opening;
    double part = 1;
    int slidePixels = 0;

    int count = 0;      // of rows with all that is below them
    int fullHeight = 0; // of these
    int shown = 0;      // of that, on the way
    int outer = 0;      // with the gap below it

    int ownTop(int row) const { return tops.empty() ? row * rowHeight : tops[static_cast<std::size_t>(row)]; }

    // The first open row not above `row`.
    auto childFrom(int row) const { return std::ranges::lower_bound(open, row, {}, &Child::row); }

    Block* blockOf(int row) const {
        const auto child = childFrom(row);
        return child != open.end() && child->row == row ? child->block.get() : nullptr;
    }

    // What stands below the rows above `row`.
    int heightAbove(int row) const {
        const auto child = childFrom(row);
        if (child != open.end()) return child->heightBefore;
        return open.empty() ? 0 : open.back().heightBefore + open.back().block->outer;
    }

    int countAbove(int row) const {
        const auto child = childFrom(row);
        if (child != open.end()) return child->countBefore;
        return open.empty() ? 0 : open.back().countBefore + open.back().block->count;
    }

    int topOf(int row) const { return ownTop(row) + heightAbove(row); }

    // The last row that begins at or above `y`.
    int rowAt(int y) const {
        int low = 0;
        int high = rows - 1;
        while (low < high) {
            const int middle = (low + high + 1) / 2;
            if (topOf(middle) <= y)
                low = middle;
            else
                high = middle - 1;
        }
        return low;
    }
};

VisibleRows::VisibleRows() = default;
VisibleRows::~VisibleRows() = default;

void VisibleRows::rebuild(const QAbstractItemModel* model, const Metrics& metrics, const IsOpen& isOpen) {
    m_model = model;
    m_metrics = metrics;
    m_root = model ? makeBlock({}, -1, isOpen) : nullptr;
    settleAll();
}

std::unique_ptr<VisibleRows::Block> VisibleRows::makeBlock(const QModelIndex& parent, int depth,
                                                           const IsOpen& isOpen) const {
    auto block = std::make_unique<Block>();
    block->parent = parent;
    block->depth = depth;
    block->rows = m_model->rowCount(parent);
    block->rowHeight = m_metrics.row;
    if (depth < 0) placeTopLevel(*block);
    for (int row = 0; row < block->rows; ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        if (m_model->flags(index) & Qt::ItemNeverHasChildren) continue;
        if (!isOpen(index)) continue;
        const int below = depth < 0 && styleOf(*block, row) == RowStyle::Row ? 1 : depth + 1;
        block->open.push_back({row, makeBlock(index, below, isOpen)});
    }
    return block;
}

void VisibleRows::placeTopLevel(Block& block) const {
    int top = m_metrics.top;
    block.tops.reserve(static_cast<std::size_t>(block.rows) + 1);
    block.styles.reserve(static_cast<std::size_t>(block.rows));
    for (int row = 0; row < block.rows; ++row) {
        const QVariant style = m_model->index(row, 0, block.parent).data(ListView::StyleRole);
        block.styles.push_back(style.isValid() ? static_cast<RowStyle>(style.toInt()) : RowStyle::Row);
        const bool endsACard = row > 0 && styleOf(block, row - 1) == RowStyle::Row;
        if (endsACard && block.styles.back() != RowStyle::Row) top += m_metrics.gap;
        block.tops.push_back(top);
        top += heightOf(block, row);
    }
    block.tops.push_back(top);
}

RowStyle VisibleRows::styleOf(const Block& block, int row) const {
    return block.styles.empty() ? RowStyle::Row : block.styles[static_cast<std::size_t>(row)];
}

int VisibleRows::heightOf(const Block& block, int row) const {
    switch (styleOf(block, row)) {
    case RowStyle::Header:
        return m_metrics.header;
    case RowStyle::SectionHeader:
        return m_metrics.sectionHeader;
    case RowStyle::Row:
        break;
    }
    return m_metrics.row;
}

void VisibleRows::settle(Block& block) const {
    int count = 0;
    int height = 0;
    for (auto& child : block.open) {
        settle(*child.block);
        child.countBefore = count;
        child.heightBefore = height;
        count += child.block->count;
        height += child.block->outer;
    }
    block.count = block.way == SlideWay::Closing ? 0 : block.rows + count;
    block.fullHeight = block.ownTop(block.rows) + height;
    block.shown = block.part >= 1
                      ? block.fullHeight
                      : std::min(block.fullHeight,
                                 static_cast<int>(block.part * static_cast<double>(block.slidePixels)));
    // Depth 0 hangs from a header, where its card ends with it.
    block.outer = block.shown + (block.depth == 0 ? std::min(block.shown, m_metrics.gap) : 0);
}

void VisibleRows::settleAll() {
    if (m_root) settle(*m_root);
}

int VisibleRows::height() const {
    return m_root && m_root->rows > 0 ? m_root->fullHeight + m_metrics.bottom : 0;
}

int VisibleRows::count() const {
    return m_root ? m_root->count : 0;
}

QModelIndex VisibleRows::at(int ordinal) const {
    if (ordinal < 0 || ordinal >= count()) return {};
    const Block* block = m_root.get();
    while (true) {
        // The last open row at or above the place; one that is the place itself is a row like others.
        const auto after = std::ranges::upper_bound(
            block->open, ordinal, {}, [](const Child& child) { return child.row + 1 + child.countBefore; });
        if (after == block->open.begin()) return m_model->index(ordinal, 0, block->parent);
        const Child& above = *std::prev(after);
        const int within = ordinal - (above.row + 1 + above.countBefore);
        if (within >= above.block->count)
            return m_model->index(ordinal - above.countBefore - above.block->count, 0, block->parent);
        ordinal = within;
        block = above.block.get();
    }
}

std::vector<int> VisibleRows::pathOf(const QModelIndex& index) {
    std::vector<int> path;
    for (QModelIndex at = index; at.isValid(); at = at.parent())
        path.push_back(at.row());
    std::ranges::reverse(path);
    return path;
}

int VisibleRows::ordinalOf(const QModelIndex& index) const {
    if (!index.isValid() || !m_root) return -1;
    int ordinal = -1;
    const Block* block = m_root.get();
    for (const int row : pathOf(index)) {
        if (!block || block->way == SlideWay::Closing || row >= block->rows) return -1;
        ordinal += 1 + row + block->countAbove(row);
        block = block->blockOf(row);
    }
    return ordinal;
}

VisibleRows::Found VisibleRows::find(const QModelIndex& index) const {
    if (!index.isValid() || !m_root) return {};
    Found found{nullptr, 0, 0, m_root->fullHeight};
    Block* block = m_root.get();
    int top = 0;
    for (const int row : pathOf(index)) {
        if (!block || row >= block->rows) return {};
        found = {block, row, top, std::min(found.clipBottom, top + block->shown)};
        top += block->topOf(row) + heightOf(*block, row);
        block = block->blockOf(row);
    }
    return found;
}

VisibleRow VisibleRows::rowAt(const Found& found) const {
    const Block& block = *found.block;
    const int row = found.row;
    VisibleRow result;
    result.index = m_model->index(row, 0, block.parent);
    result.style = styleOf(block, row);
    result.depth = std::max(0, block.depth);
    result.top = found.blockTop + block.topOf(row);
    result.height = heightOf(block, row);
    result.clipBottom = found.clipBottom;
    result.isFirstOfCard =
        block.depth < 0 ? row == 0 || styleOf(block, row - 1) != RowStyle::Row : block.depth == 0 && row == 0;
    if (const Block* below = block.blockOf(row)) result.openness = below->part;
    return result;
}

std::optional<VisibleRow> VisibleRows::rowOf(const QModelIndex& index) const {
    const Found found = find(index);
    return found.block ? std::optional(rowAt(found)) : std::nullopt;
}

QModelIndex VisibleRows::indexAt(int y) const {
    const auto rows = rowsBetween(y, y + 1);
    return rows.empty() ? QModelIndex() : rows.front().index;
}

std::vector<VisibleRow> VisibleRows::rowsBetween(int from, int to) const {
    std::vector<VisibleRow> rows;
    if (m_root) collect(*m_root, 0, m_root->fullHeight, from, to, rows);
    return rows;
}

void VisibleRows::collect(Block& block, int top, int clipBottom, int from, int to,
                          std::vector<VisibleRow>& rows) const {
    clipBottom = std::min(clipBottom, top + block.shown);
    to = std::min(to, clipBottom);
    if (block.rows == 0) return;
    for (int row = block.rowAt(from - top); row < block.rows; ++row) {
        const int rowTop = top + block.topOf(row);
        if (rowTop >= to) return;
        const int rowBottom = rowTop + heightOf(block, row);
        if (rowBottom > from) rows.push_back(rowAt({&block, row, top, clipBottom}));
        if (Block* below = block.blockOf(row)) collect(*below, rowBottom, clipBottom, from, to, rows);
    }
}

std::vector<VisibleRows::Card> VisibleRows::cardsBetween(int from, int to) const {
    std::vector<Card> cards;
    if (!m_root || m_root->rows == 0) return cards;
    const int beyond = to - from;
    int row = m_root->rowAt(from - m_metrics.gap);
    bool continues = row > 0 && styleOf(*m_root, row - 1) == RowStyle::Row;
    for (; row < m_root->rows && m_root->topOf(row) < to; ++row) {
        const int top = m_root->topOf(row);
        const Block* below = m_root->blockOf(row);
        const int belowTop = top + heightOf(*m_root, row);
        const int shown = below ? below->shown : 0;
        if (styleOf(*m_root, row) != RowStyle::Row) {
            if (shown > 0) cards.push_back({belowTop, belowTop + shown});
            continues = false;
            continue;
        }
        if (!continues || cards.empty()) cards.push_back({continues ? top - beyond : top, top});
        cards.back().bottom = belowTop + shown;
        continues = true;
    }
    if (continues && row < m_root->rows && styleOf(*m_root, row) == RowStyle::Row)
        cards.back().bottom += beyond;
    return cards;
}

VisibleRows::Block* VisibleRows::blockBelow(const QModelIndex& index) const {
    const Found found = find(index);
    return found.block ? found.block->blockOf(found.row) : nullptr;
}

void VisibleRows::open(const QModelIndex& index, const IsOpen& isOpen) {
    const Found found = find(index);
    if (!found.block) return;
    Block& block = *found.block;
    if (block.blockOf(found.row)) {
        slide(index, SlideWay::Opening, 1, 0);
        return;
    }
    const int below = block.depth < 0 && styleOf(block, found.row) == RowStyle::Row ? 1 : block.depth + 1;
    block.open.insert(block.childFrom(found.row), Child{found.row, makeBlock(index, below, isOpen)});
    settleAll();
}

void VisibleRows::close(const QModelIndex& index) {
    const Found found = find(index);
    if (!found.block) return;
    std::erase_if(found.block->open, [&found](const Child& child) { return child.row == found.row; });
    settleAll();
}

void VisibleRows::slide(const QModelIndex& index, SlideWay way, double part, int pixels) {
    Block* block = blockBelow(index);
    if (!block) return;
    block->way = way;
    block->part = part;
    block->slidePixels = pixels;
    settleAll();
}

int VisibleRows::heightBelow(const QModelIndex& index) const {
    const Block* block = blockBelow(index);
    return block ? block->fullHeight : 0;
}

} // namespace platform
