#pragma once

#include "Tessarine/base/Rect.h"
#include "Tessarine/layout/LineFragment.h"
#include "Tessarine/layout/manager/LayoutManager.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// Steps of a caret by the rows on screen, keeping its place in points while steps follow each other.
//
// Between two rows a caret shows at the end of the first, unless a step has led it to the start of the
// second. Units: locations in code units, which must lie in the text; lengths in points. Thread: the main
// one. Cost: O(log n) a step, and setting the rows that it looks at; up into a line means all of its rows.
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

    // The caret has been moved in another way.
    void forgetSteps() { m_lastStep.reset(); }

    // Of the row in which the caret shows, and not behind what the line holds.
    std::int64_t rowLimit(std::int64_t location);

    Rect caretRect(std::int64_t location);

private:
    struct Row {
        DocumentLineNode* line;
        LineFragmentReference fragment; // null in an empty line

        std::int64_t index() const { return fragment ? fragment->index : 0; }
    };

    // What the last step led to; counts as long as the caret is there.
    struct Step {
        std::int64_t location;
        std::int64_t rowIndex; // in the line
        double x;              // that the steps keep
    };

    const LineFragments& rows(DocumentLineNode& line, std::int64_t toLocation);
    Row rowAt(std::int64_t location);
    std::optional<LineFragmentReference> rowOfLastStep(std::int64_t location, const LineFragments& rows,
                                                       std::int64_t inLine) const;
    Row firstRow(DocumentLineNode& line);
    Row lastRow(DocumentLineNode& line);
    std::optional<Row> rowAbove(const Row& row);
    std::optional<Row> rowBelow(const Row& row);
    double keptX(std::int64_t location);
    std::int64_t locationIn(const Row& row, double x) const;
    std::int64_t rowsOfPage();

    const EditedDocument& document() const { return m_layoutManager.context().document; }

    LayoutManager& m_layoutManager;
    std::optional<Step> m_lastStep;
};

} // namespace tessarine
