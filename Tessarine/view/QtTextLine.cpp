#include "Tessarine/view/QtTextLine.h"

#include "Tessarine/view/QtConversions.h"

#include <QtGui/QFontMetricsF>

#include <algorithm>
#include <utility>

namespace tessarine {

namespace {

// That of the fonts that were asked for: one that merely lends a character does not push rows apart.
double leadingOf(const RowText& row) {
    double leading = 0;
    for (const RowText::Run& run : row.runs)
        leading = std::max(leading, QFontMetricsF(run.style->face).leading());
    return leading;
}

TypographicBounds boundsOf(const RowText& row, const RowLayout& layout) {
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
    , m_bounds(boundsOf(m_row, m_layouts->layoutOf(m_row))) {}

QtTextLine::~QtTextLine() {
    m_layouts->remove(m_row);
}

double QtTextLine::offsetForStringIndex(std::int64_t index) const {
    return m_layouts->layoutOf(m_row).line().cursorToX(positionOf(index));
}

int QtTextLine::positionOf(std::int64_t index) const {
    return static_cast<int>(std::clamp<std::int64_t>(index - m_location, 0, m_row.text.size()));
}

// Each character is looked at only where it may run another way than the others.
std::vector<TextLine::Span> QtTextLine::spansOf(const TextRange& range) const {
    if (!m_row.isRightToLeft && !m_row.hasRightToLeft) return TextLine::spansOf(range);
    auto spans = m_layouts->layoutOf(m_row).spansOf(positionOf(range.location), positionOf(range.limit()));
    return spans.empty() ? TextLine::spansOf(range) : spans;
}

std::int64_t QtTextLine::stringIndexForPosition(double x) const {
    return m_location + m_layouts->layoutOf(m_row).nearestBoundary(std::clamp(x, 0.0, m_bounds.width));
}

void QtTextLine::draw(QPainter& painter, const QPointF& baseline, UserInterfaceStyle style) const {
    drawShadows(painter, baseline, style);
    m_layouts->setStyle(style);
    m_layouts->layoutOf(m_row).draw(painter, baseline);
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
