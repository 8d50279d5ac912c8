#include "Tessarine/layout/manager/LineSelectionLayout.h"

#include <algorithm>

namespace tessarine {

void LineSelectionLayout::layout(const SelectedLines& lines, double contentWidth) {
    const Rect band{.y = lines.top,
                    .width = std::max(contentWidth, m_context.scrollViewWidth),
                    .height = lines.bottom - lines.top};
    m_lineSelectionBackgroundView->setHidden(lines.isEmpty());
    m_lineSelectionBackgroundView->setFrame(band);
    m_lineSelectionBackgroundView->setBackgroundColor(m_context.theme->selectedLineBackgroundColor());

    m_gutterSelectionBackgroundView->setHidden(lines.isEmpty() || !m_context.showLineNumbers);
    m_gutterSelectionBackgroundView->setFrame(
        {.y = band.y,
         .width = m_geometry.safeInset().left + m_geometry.gutterWidth(),
         .height = band.height});
    m_gutterSelectionBackgroundView->setBackgroundColor(
        m_context.theme->selectedLinesGutterBackgroundColor());
}

} // namespace tessarine
