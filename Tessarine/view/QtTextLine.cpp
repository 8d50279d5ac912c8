#include "Tessarine/view/QtTextLine.h"

#include "Tessarine/view/EvenRow.h"
#include "Tessarine/view/QtConversions.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <utility>

namespace tessarine {

namespace {

// Long even rows are laid out and drawn in pieces, as only a part of them shows.
constexpr int pieceLength = 256;

// That of the fonts that were asked for: one that merely lends a character does not push rows apart.
double leadingOf(const RowText& row) {
    double leading = 0;
    for (const RowText::Run& run : row.runs)
        leading = std::max(leading, run.style->metrics.leading);
    return leading;
}

TypographicBounds evenBoundsOf(const RowText& row) {
    TypographicBounds bounds{.width = evenX(row, static_cast<int>(row.text.size())),
                             .leading = leadingOf(row)};
    for (const RowText::Run& run : row.runs) {
        bounds.ascent = std::max(bounds.ascent, run.style->metrics.ascent);
        bounds.descent = std::max(bounds.descent, run.style->metrics.descent);
    }
    return bounds;
}

TypographicBounds boundsOf(const RowText& row, RowLayouts& layouts) {
    if (row.isEven()) return evenBoundsOf(row);
    const RowLayout& layout = layouts.layoutOf(row);
    return {.width = layout.width(),
            .ascent = layout.line().ascent(),
            .descent = layout.line().descent(),
            .leading = leadingOf(row)};
}

} // namespace

QtTextLine::QtTextLine(RowText row, std::int64_t location, std::shared_ptr<RowLayouts> layouts)
    : m_row(std::move(row))
    , m_location(location)
    , m_layouts(std::move(layouts))
    , m_bounds(boundsOf(m_row, *m_layouts)) {}

double QtTextLine::offsetForStringIndex(std::int64_t index) const {
    const int position = positionOf(index);
    return m_row.isEven() ? evenX(m_row, position) : m_layouts->layoutOf(m_row).line().cursorToX(position);
}

int QtTextLine::positionOf(std::int64_t index) const {
    return static_cast<int>(std::clamp<std::int64_t>(index - m_location, 0, m_row.text.size()));
}

// Each character is looked at only where it may run another way than the others.
std::vector<TextLine::Span> QtTextLine::spansOf(const TextRange& range) const {
    if (runsFromLeftToRight()) return TextLine::spansOf(range);
    auto spans = m_layouts->layoutOf(m_row).spansOf(positionOf(range.location), positionOf(range.limit()));
    return spans.empty() ? TextLine::spansOf(range) : spans;
}

std::int64_t QtTextLine::stringIndexForPosition(double x) const {
    const double inRow = std::clamp(x, 0.0, m_bounds.width);
    return m_location +
           (m_row.isEven() ? evenNearest(m_row, inRow) : m_layouts->layoutOf(m_row).nearestBoundary(inRow));
}

void QtTextLine::draw(QPainter& painter, const QPointF& baseline, UserInterfaceStyle style) const {
    drawShadows(painter, baseline, style);
    m_layouts->setStyle(style);
    if (m_row.isEven() && m_row.text.size() > pieceLength) return drawPieces(painter, baseline);
    m_layouts->layoutOf(m_row).draw(painter, baseline);
}

// Those that show. What leans over the edge of its piece is not cut off.
void QtTextLine::drawPieces(QPainter& painter, const QPointF& baseline) const {
    const double overhang = m_bounds.height();
    const bool isClipped = painter.hasClipping();
    const QRectF shown = painter.clipBoundingRect();
    for (int start = 0; start < m_row.text.size(); start += pieceLength) {
        const double minX = baseline.x() + evenX(m_row, start);
        const double maxX = baseline.x() + evenX(m_row, start + pieceLength);
        if (!isClipped || (maxX + overhang > shown.left() && minX - overhang < shown.right()))
            m_layouts->layoutOf(m_row.part(start, pieceLength)).draw(painter, {minX, baseline.y()});
    }
}

// Sharp ones, whatever their blur. No theme has any, so nothing is kept of them.
void QtTextLine::drawShadows(QPainter& painter, const QPointF& baseline, UserInterfaceStyle style) const {
    for (std::size_t i = 0; i < m_row.runs.size(); ++i) {
        const auto& shadow = m_row.runs[i].style->shadow;
        if (!shadow) continue;
        std::vector<QColor> colors(m_row.runs.size(), Qt::transparent);
        colors[i] = toQt(shadow->color.resolved(style));
        RowLayout(m_row, colors).draw(painter, baseline + QPointF(shadow->offsetX, shadow->offsetY));
    }
}

} // namespace tessarine
