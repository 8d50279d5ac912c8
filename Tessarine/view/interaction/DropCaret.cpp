#include "Tessarine/view/interaction/DropCaret.h"

#include "Tessarine/textview/TextView.h"

namespace tessarine {

DropCaret::DropCaret(TextView& textView)
    : m_textView(textView) {
    hide();
    m_textView.scrollView()->addSubview(m_view);
}

DropCaret::~DropCaret() {
    m_view->removeFromSuperview();
}

void DropCaret::show(std::int64_t location) {
    Rect frame = m_textView.caretRect(location);
    frame.width = SelectionLayout::caretWidth;
    m_view->setFrame(frame);
    m_view->setBackgroundColor(m_textView.insertionPointColor());
    m_view->setHidden(false);
}

void DropCaret::hide() {
    m_view->setHidden(true);
}

} // namespace tessarine
