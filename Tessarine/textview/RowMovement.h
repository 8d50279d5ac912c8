#pragma once

#include "Tessarine/base/Rect.h"
#include "Tessarine/layout/manager/LayoutManager.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// Steps of a caret by the rows on screen, keeping its place in points while steps follow each other.
//
// Between two rows a caret shows at the end of the first, unless a step has led it to the start of the
// second. Units: locations in code units, lengths in points. Thread: the main one.
class RowMovement {
public:
    // Borrows it.
    explicit RowMovement(LayoutManager& layoutManager)
        : m_layoutManager(layoutManager) {}

    // By one row. Above the first lies the start of the text, below the last its end.
    std::int64_t above(std::int64_t location);
    std::int64_t below(std::int64_t location);

    // By as many rows as the viewport shows, less one.
    std::int64_t pageAbove(std::int64_t location);
    std::int64_t pageBelow(std::int64_t location);

    // Of the row in which the caret shows, and not behind what the line holds.
    std::int64_t rowLimit(std::int64_t location);

    Rect caretRect(std::int64_t location);

private:
    // What the last step led to; counts as long as the caret is there.
    struct Step {
        std::int64_t location;
        std::int64_t rowIndex; // in the line
        double x;              // that the steps keep
    };

    struct Row;

    Row rowAt(std::int64_t location);
    Row firstRow(DocumentLineNode& line);
    Row lastRow(DocumentLineNode& line);
    std::optional<Row> rowAbove(const Row& row);
    std::optional<Row> rowBelow(const Row& row);
    double keptX(std::int64_t location);
    std::int64_t stepTo(const Row& row, double x);
    std::int64_t rowsOfPage(std::int64_t location);

    LayoutManager& m_layoutManager;
    std::optional<Step> m_lastStep;
};

} // namespace tessarine
