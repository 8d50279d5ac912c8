#include "Tessarine/layout/manager/LayoutGeometry.h"

namespace tessarine {

namespace {

constexpr double constrainingWidthWithoutWrapping = 10'000;

}

double LayoutGeometry::gutterWidth() const {
    if (!m_context.showLineNumbers) return 0;
    return m_lineNumberWidth.value() + m_context.gutterLeadingPadding + m_context.gutterTrailingPadding;
}

EdgeInsets LayoutGeometry::safeInset() const {
    const auto scrollView = m_context.scrollView.lock();
    if (!scrollView) return {};
    const EdgeInsets adjusted = scrollView->adjustedContentInset();
    const EdgeInsets own = scrollView->contentInset();
    return {.top = adjusted.top - own.top,
            .left = adjusted.left - own.left,
            .bottom = adjusted.bottom - own.bottom,
            .right = adjusted.right - own.right};
}

double LayoutGeometry::availableWidth() const {
    const EdgeInsets inset = safeInset();
    return m_context.scrollViewWidth - inset.left - inset.right;
}

double LayoutGeometry::constrainingLineWidth() const {
    if (!m_context.isLineWrappingEnabled) return constrainingWidthWithoutWrapping;
    return availableWidth() - leadingLineSpacing() - m_context.textContainerInset.right;
}

} // namespace tessarine
