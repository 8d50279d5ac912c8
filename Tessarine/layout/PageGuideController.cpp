#include "Tessarine/layout/PageGuideController.h"

#include <algorithm>

namespace tessarine {

double PageGuideController::columnOffset() const {
    if (!m_columnOffset) {
        const auto count = std::max<std::int64_t>(m_column, 0);
        const std::u16string text(static_cast<std::size_t>(count), u' ');
        m_columnOffset = m_measurer->width(text, m_font) + m_kern * static_cast<double>(count);
    }
    return *m_columnOffset;
}

void PageGuideController::setTheme(const Theme& theme) {
    m_guideView->setBackgroundColor(theme.pageGuideBackgroundColor());
    m_guideView->hairlineView().setBackgroundColor(theme.pageGuideHairlineColor());
}

} // namespace tessarine
