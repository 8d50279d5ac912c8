#include "Tessarine/view/RowLayout.h"

#include "Tessarine/view/QtConversions.h"

#include <QtGui/QGlyphRun>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessarine {

namespace {

constexpr double unlimitedWidth = 1e6; // the toolkit's numbers end at some ten times that

QTextOption optionOf(const RowText& row) {
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(row.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setTabStopDistance(row.tabInterval);
    return option;
}

template <class FormatOf>
QList<QTextLayout::FormatRange> formatsOf(const RowText& row, FormatOf formatOf) {
    QList<QTextLayout::FormatRange> formats;
    formats.reserve(static_cast<qsizetype>(row.runs.size()));
    int start = 0;
    for (std::size_t i = 0; i < row.runs.size(); ++i) {
        formats.push_back({start, row.runs[i].length, formatOf(i)});
        start += row.runs[i].length;
    }
    return formats;
}

constexpr double leastGap = 0.1; // less is rounding

TextLine::Span spanBetween(double x, double otherX) {
    return {.minX = std::min(x, otherX), .maxX = std::max(x, otherX)};
}

std::vector<TextLine::Span> merged(std::vector<TextLine::Span> parts) {
    std::ranges::sort(parts, {}, &TextLine::Span::minX);
    std::vector<TextLine::Span> spans;
    for (const TextLine::Span& part : parts) {
        if (spans.empty() || part.minX > spans.back().maxX + leastGap)
            spans.push_back(part);
        else
            spans.back().maxX = std::max(spans.back().maxX, part.maxX);
    }
    return spans;
}

} // namespace

RowLayout::RowLayout(const RowText& row, const std::vector<QColor>& colors)
    : RowLayout(row, formatsOf(row, [&](std::size_t run) {
                    QTextCharFormat format = row.runs[run].style->format(UserInterfaceStyle::Light);
                    format.setForeground(colors[run]);
                    return format;
                })) {}

RowLayout::RowLayout(const RowText& row, UserInterfaceStyle style)
    : RowLayout(row, formatsOf(row, [&](std::size_t run) -> const QTextCharFormat& {
                    return row.runs[run].style->format(style);
                })) {}

RowLayout::RowLayout(const RowText& row, const QList<QTextLayout::FormatRange>& formats)
    : m_layout(row.text, row.runs.front().style->face) {
    m_layout.setCacheEnabled(true);
    m_layout.setTextOption(optionOf(row));
    m_layout.setFormats(formats);
    m_layout.beginLayout();
    m_line = m_layout.createLine();
    m_line.setLineWidth(unlimitedWidth);
    m_line.setPosition({0, 0});
    m_layout.endLayout();
}

// Where a character has several units the toolkit may miss it by one.
int RowLayout::nearestBoundary(double x) const {
    int nearest = m_line.xToCursor(x);
    const auto distance = [&](int position) { return std::abs(m_line.cursorToX(position) - x); };
    for (const int other : {m_layout.previousCursorPosition(nearest), m_layout.nextCursorPosition(nearest)})
        if (distance(other) < distance(nearest)) nearest = other;
    return nearest;
}

// The edges of carets do not tell: between two directions there are two of them, and the toolkit has one. Of
// tabs it draws nothing, but they run as the row does, and so do their carets.
std::vector<TextLine::Span> RowLayout::spansOf(int start, int limit) const {
    std::vector<TextLine::Span> parts;
    for (const QGlyphRun& glyphs : m_line.glyphRuns(start, limit - start))
        parts.push_back({.minX = glyphs.boundingRect().left(), .maxX = glyphs.boundingRect().right()});
    const QString text = m_layout.text();
    for (int at = start; at < limit; ++at)
        if (text[at] == u'\t') parts.push_back(spanBetween(m_line.cursorToX(at), m_line.cursorToX(at + 1)));
    return merged(std::move(parts));
}

void RowLayout::draw(QPainter& painter, const QPointF& baseline) const {
    m_layout.draw(&painter, baseline - QPointF(0, m_line.ascent()));
}

} // namespace tessarine
