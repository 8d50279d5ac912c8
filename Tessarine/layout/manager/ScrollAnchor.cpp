#include "Tessarine/layout/manager/ScrollAnchor.h"

namespace tessarine {

ScrollAnchor::ScrollAnchor(const LineFragments& rows, double viewportTop, double lineHeight)
    : m_lineHeight(lineHeight) {
    const LineFragment* const row = rowAtHeight(rows, viewportTop);
    if (!row) return;
    m_location = row->range.location;
    m_rowY = row->yPosition;
}

double ScrollAnchor::shiftIn(const LineFragments& rows, double lineHeight) const {
    const LineFragment* const row = m_location ? rowOfUnit(rows, *m_location) : nullptr;
    return row ? row->yPosition - m_rowY : lineHeight - m_lineHeight;
}

} // namespace tessarine
