#include "Tessarine/layout/LineFragmentController.h"

namespace tessarine {

std::shared_ptr<LineFragmentController>
LineFragmentController::create(LineFragmentReference lineFragment,
                               std::weak_ptr<LineFragmentControllerDelegate> delegate) {
    const std::shared_ptr<LineFragmentController> controller(
        new LineFragmentController(std::move(lineFragment), std::move(delegate)));
    controller->m_renderer->setDelegate(controller);
    return controller;
}

void LineFragmentController::setLineFragment(const LineFragmentReference& lineFragment) {
    if (lineFragment == m_renderer->lineFragment()) return;
    m_renderer->setLineFragment(lineFragment);
    setNeedsDisplay();
}

void LineFragmentController::setLineFragmentView(const std::shared_ptr<LineFragmentView>& view) {
    m_lineFragmentView = view;
    if (view) view->setRenderer(m_renderer);
}

bool LineFragmentController::isShown() const {
    const auto view = lineFragmentView();
    return view && view->renderer() == m_renderer;
}

void LineFragmentController::setMarkedRange(const std::optional<TextRange>& range) {
    if (range == m_renderer->markedRange()) return;
    m_renderer->setMarkedRange(range);
    setNeedsDisplay();
}

void LineFragmentController::setMarkedTextBackground(const Color& color, double cornerRadius) {
    if (color == m_renderer->markedTextBackgroundColor() &&
        cornerRadius == m_renderer->markedTextBackgroundCornerRadius())
        return;
    m_renderer->setMarkedTextBackgroundColor(color);
    m_renderer->setMarkedTextBackgroundCornerRadius(cornerRadius);
    setNeedsDisplay();
}

void LineFragmentController::setNeedsDisplay() const {
    if (isShown()) lineFragmentView()->setNeedsDisplay();
}

std::optional<std::u16string> LineFragmentController::string(const LineFragmentRenderer& /*renderer*/) {
    const auto delegate = m_delegate.lock();
    return delegate ? delegate->string(*this) : std::nullopt;
}

} // namespace tessarine
