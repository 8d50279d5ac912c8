#pragma once

#include "Tessarine/layout/TextLine.h"
#include "Tessarine/view/RowText.h"

#include <QtGui/QTextLayout>

namespace tessarine {

// A row's glyphs in their places, counted from its left end: what costs most to make and to keep. The row is
// not empty. Main thread.
class RowLayout {
public:
    // A colour for each run.
    RowLayout(const RowText& row, const std::vector<QColor>& colors);

    // In the colours that the runs have.
    RowLayout(const RowText& row, UserInterfaceStyle style);

    RowLayout(const RowLayout&) = delete;
    RowLayout& operator=(const RowLayout&) = delete;

    // Its positions are units from the row's start.
    const QTextLine& line() const { return m_line; }

    // Trailing spaces included.
    double width() const { return m_line.horizontalAdvance(); }

    // Whether a character begins or the row ends there.
    bool isBoundary(int position) const { return m_layout.isValidCursorPosition(position); }

    int nearestBoundary(double x) const;

    // Where the units from one position to another show, from left to right.
    std::vector<TextLine::Span> spansOf(int start, int limit) const;

    // With the left end of the baseline there.
    void draw(QPainter& painter, const QPointF& baseline) const;

private:
    RowLayout(const RowText& row, const QList<QTextLayout::FormatRange>& formats);

    QTextLayout m_layout;
    QTextLine m_line;
};

} // namespace tessarine
