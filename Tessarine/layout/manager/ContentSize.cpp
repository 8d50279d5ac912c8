#include "Tessarine/layout/manager/ContentSize.h"

#include <cmath>

namespace tessarine {

double ContentSize::textContentWidth() {
    if (!m_textContentWidth) m_textContentWidth = m_lineWidths.widest().value_or(m_context.scrollViewWidth);
    return *m_textContentWidth;
}

double ContentSize::textContentHeight() {
    if (!m_textContentHeight) m_textContentHeight = m_context.document.lineManager->contentHeight();
    return *m_textContentHeight;
}

double ContentSize::contentWidth() {
    if (m_context.isLineWrappingEnabled) return m_geometry.availableWidth();
    return std::trunc(textContentWidth() + m_geometry.leadingLineSpacing() +
                      m_context.textContainerInset.right + m_geometry.insetForInvisibles());
}

double ContentSize::contentHeight() {
    const EdgeInsets& inset = m_context.textContainerInset;
    return std::trunc(textContentHeight() + inset.top + inset.bottom);
}

void ContentSize::invalidate() {
    m_textContentWidth.reset();
    m_textContentHeight.reset();
}

void ContentSize::lineWasLaidOut(DocumentLineNode& line, double width, double height) {
    if (m_lineWidths.set(line.id(), width)) m_textContentWidth.reset();
    if (m_context.document.lineManager->setLineHeight(line, height)) m_textContentHeight.reset();
}

void ContentSize::removeLine(const DocumentLineNodeID& lineID) {
    if (m_lineWidths.remove(lineID)) m_textContentWidth.reset();
}

void ContentSize::removeAllLines() {
    m_lineWidths.removeAll();
    invalidate();
}

void ContentSize::resetLineWidthsIfNeeded() {
    if (!m_shouldResetLineWidths) return;
    m_shouldResetLineWidths = false;
    m_lineWidths.removeAll();
    m_textContentWidth.reset();
}

} // namespace tessarine
