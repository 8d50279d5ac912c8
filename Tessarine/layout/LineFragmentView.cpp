#include "Tessarine/layout/LineFragmentView.h"

namespace tessarine {

void LineFragmentView::setRenderer(std::shared_ptr<LineFragmentRenderer> renderer) {
    if (renderer == m_renderer) return;
    m_renderer = std::move(renderer);
    m_isRenderInvalid = true;
    setNeedsDisplay();
}

void LineFragmentView::draw(DrawContext& context) {
    if (m_renderer) m_renderer->draw(context);
}

void LineFragmentView::didDisplay() {
    View::didDisplay();
    m_isRenderInvalid = false;
}

} // namespace tessarine
