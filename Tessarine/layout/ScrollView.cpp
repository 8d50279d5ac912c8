#include "Tessarine/layout/ScrollView.h"

namespace tessarine {

void ScrollView::setContentOffset(const Point& offset) {
    if (offset == m_contentOffset) return;
    m_contentOffset = offset;
    invalidate(bounds());
}

EdgeInsets ScrollView::adjustedContentInset() const {
    return {.top = m_contentInset.top + m_safeAreaInsets.top,
            .left = m_contentInset.left + m_safeAreaInsets.left,
            .bottom = m_contentInset.bottom + m_safeAreaInsets.bottom,
            .right = m_contentInset.right + m_safeAreaInsets.right};
}

Rect ScrollView::bounds() const {
    return {.x = m_contentOffset.x, .y = m_contentOffset.y, .width = frame().width, .height = frame().height};
}

} // namespace tessarine
