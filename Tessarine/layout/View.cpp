#include "Tessarine/layout/View.h"

#include <algorithm>
#include <utility>

namespace tessarine {

void View::setFrame(const Rect& frame) {
    if (frame == m_frame) return;
    invalidateFrame();
    if (frame.size() != m_frame.size()) m_needsLayout = true;
    m_frame = frame;
    invalidateFrame();
}

void View::addSubview(std::shared_ptr<View> view) {
    view->removeFromSuperview();
    view->m_superview = weak_from_this();
    m_subviews.push_back(std::move(view));
    m_subviews.back()->invalidateFrame();
}

void View::removeFromSuperview() {
    const auto parent = m_superview.lock();
    if (!parent) return;
    invalidateFrame();
    m_superview.reset();
    auto& siblings = parent->m_subviews;
    // Views come and go at the end, where the search begins.
    const auto own = std::find_if(siblings.rbegin(), siblings.rend(),
                                  [this](const auto& sibling) { return sibling.get() == this; });
    siblings.erase(std::next(own).base()); // may end this view
}

template <class Value>
void View::setAppearance(Value& current, Value value) {
    if (current == value) return;
    current = std::move(value);
    invalidate(bounds());
}

void View::setBackgroundColor(std::optional<Color> color) {
    setAppearance(m_backgroundColor, color);
}

void View::setCornerRadius(double radius) {
    setAppearance(m_cornerRadius, radius);
}

void View::setMaskedCorners(const CornerMask& corners) {
    setAppearance(m_maskedCorners, corners);
}

void View::setHidden(bool isHidden) {
    if (isHidden == m_isHidden) return;
    invalidateFrame();
    m_isHidden = isHidden;
    invalidateFrame();
}

void View::setNeedsDisplay() {
    m_needsDisplay = true;
    invalidate(bounds());
}

void View::layoutIfNeeded() {
    if (std::exchange(m_needsLayout, false)) layoutSubviews();
    for (const auto& subview : m_subviews)
        subview->layoutIfNeeded();
}

void View::invalidate(const Rect& rect) {
    if (m_isHidden) return;
    const Rect own = bounds();
    if (const auto parent = superview())
        parent->invalidate(rect.offsetBy(m_frame.x - own.x, m_frame.y - own.y));
    else if (const auto host = m_host.lock())
        host->viewNeedsDisplay(rect.offsetBy(-own.x, -own.y));
}

void View::invalidateFrame() {
    const auto parent = superview();
    if (parent && !m_isHidden) parent->invalidate(m_frame);
}

} // namespace tessarine
