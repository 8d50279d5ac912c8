#pragma once

#include "Tessarine/layout/TextLine.h"
#include "Tessarine/view/RowLayouts.h"

namespace tessarine {

// A row of the toolkit's text.
//
// It keeps its text, two bytes a unit, and its runs, 24 bytes each, and is laid out again when it is drawn or
// asked for places after many others have been; places in even rows are reckoned. Where letters from right to
// left follow others, their first unit has the place at which the others end.
class QtTextLine final : public TextLine {
public:
    QtTextLine(RowText row, std::int64_t location, std::shared_ptr<RowLayouts> layouts);

    TextRange stringRange() const override {
        return {.location = m_location, .length = static_cast<std::int64_t>(m_row.text.size())};
    }

    TypographicBounds typographicBounds() const override { return m_bounds; }

    double offsetForStringIndex(std::int64_t index) const override;
    std::vector<Span> spansOf(const TextRange& range) const override;

    bool runsFromLeftToRight() const override { return !m_row.isRightToLeft && !m_row.hasRightToLeft; }

    std::int64_t stringIndexForPosition(double x) const override;

    void draw(QPainter& painter, const QPointF& baseline, UserInterfaceStyle style) const;

private:
    int positionOf(std::int64_t index) const;
    void drawPieces(QPainter& painter, const QPointF& baseline) const;
    void drawShadows(QPainter& painter, const QPointF& baseline, UserInterfaceStyle style) const;

    const RowText m_row;
    const std::int64_t m_location; // in the string
    const std::shared_ptr<RowLayouts> m_layouts;
    const TypographicBounds m_bounds;
};

} // namespace tessarine
