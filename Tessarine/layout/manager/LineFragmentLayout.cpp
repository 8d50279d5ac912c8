#include "Tessarine/layout/manager/LineFragmentLayout.h"

namespace tessarine {

void LineFragmentLayout::layoutLine(const DocumentLineNode& line,
                                    const std::vector<std::shared_ptr<LineFragmentController>>& rows) {
    const double lineTop = m_geometry.topOf(line);
    for (const auto& controller : rows)
        layoutRow(*controller, lineTop);
}

void LineFragmentLayout::layoutRow(LineFragmentController& controller, double lineTop) {
    const LineFragment& row = *controller.lineFragment();
    const auto& view = m_lineFragmentViewReuseQueue.dequeueView(row.id);
    if (!view->superview()) m_linesContainerView->addSubview(view);
    controller.renderer().setInvisibleCharacterConfiguration(m_context.invisibleCharacterConfiguration);
    controller.setLineFragmentView(view);
    const Size oldSize = view->frame().size();
    view->setFrame({.x = m_geometry.leadingLineSpacing(),
                    .y = lineTop + row.yPosition,
                    .width = row.scaledSize.width + m_geometry.insetForInvisibles(),
                    .height = row.scaledSize.height});
    if (view->frame().size() != oldSize) view->setNeedsDisplay();
    m_placed.insert(row.id);
}

void LineFragmentLayout::finishPass(const Rect& containerFrame) {
    m_linesContainerView->setFrame(containerFrame);
    m_lineFragmentViewReuseQueue.enqueueViewsExcept(m_placed);
    m_placed.clear();
}

} // namespace tessarine
