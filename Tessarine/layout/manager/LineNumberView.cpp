#include "Tessarine/layout/manager/LineNumberView.h"

namespace tessarine {

void LineNumberView::setTitleWidth(double width) {
    m_titleWidth = width;
    setNeedsLayout();
}

// The label is added here, as a view cannot take others while it is being made.
void LineNumberView::layoutSubviews() {
    if (subviews().empty()) addSubview(m_titleLabel);
    m_titleLabel->setFrame(
        {.x = frame().width - m_titleWidth, .width = m_titleWidth, .height = frame().height});
}

} // namespace tessarine
