#include "Tessarine/layout/manager/GutterBackgroundView.h"

namespace tessarine {

void GutterBackgroundView::setHairlineWidth(double width) {
    m_hairlineWidth = width;
    setNeedsLayout();
}

// The hairline is added here, as a view cannot take others while it is being made.
void GutterBackgroundView::layoutSubviews() {
    if (subviews().empty()) addSubview(m_hairlineView);
    m_hairlineView->setFrame(
        {.x = frame().width - m_hairlineWidth, .width = m_hairlineWidth, .height = frame().height});
}

} // namespace tessarine
