#include "Tessarine/layout/PageGuideView.h"

namespace tessarine {

PageGuideView::PageGuideView() {
    setUserInteractionEnabled(false);
    m_hairlineView->setUserInteractionEnabled(false);
}

void PageGuideView::setScreenScale(double scale) {
    m_hairlineWidth = 1 / scale;
    setNeedsLayout();
}

// The hairline is added here, as a view that is still being made has no owner to tell it of.
void PageGuideView::layoutSubviews() {
    if (!m_hairlineView->superview()) addSubview(m_hairlineView);
    m_hairlineView->setFrame({.width = m_hairlineWidth, .height = bounds().height});
}

} // namespace tessarine
