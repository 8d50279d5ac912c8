#include "Tessarine/view/TextViewport.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"

#include <utility>

namespace tessarine {

TextViewport::TextViewport(std::shared_ptr<TextView> textView)
    : m_textView(std::move(textView)) {
    setRootView(m_textView->scrollView());
    setMouseTracking(true);
    setAttribute(Qt::WA_AcceptTouchEvents);
}

void TextViewport::layoutViews(View& root) {
    m_textView->setScreenScale(devicePixelRatioF());
    m_textView->layoutIfNeeded();
    QtViewWidget::layoutViews(root);
}

void TextViewport::resizeEvent(QResizeEvent* event) {
    m_textView->setSize(fromQt(QSizeF(size())));
    QtViewWidget::resizeEvent(event);
}

} // namespace tessarine
