#include "Tessarine/view/interaction/ViewScrolling.h"

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"

#include <QtGui/QScrollEvent>
#include <QtGui/QScrollPrepareEvent>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QScrollBar>

namespace tessarine {

ViewScrolling::ViewScrolling(TextView& textView, const QAbstractScrollArea& area)
    : m_textView(textView)
    , m_horizontal(*area.horizontalScrollBar())
    , m_vertical(*area.verticalScrollBar()) {}

void ViewScrolling::showInBars() {
    const Point minimum = m_textView.minimumContentOffset();
    const Point maximum = m_textView.maximumContentOffset();
    const Point offset = m_textView.scrollView()->contentOffset();
    const Size page = m_textView.scrollView()->frame().size();
    const double line = m_textView.lineHeight();
    m_isShowing = true;
    m_horizontal.show({minimum.x, maximum.x, page.width, line, offset.x});
    m_vertical.show({minimum.y, maximum.y, page.height, line, offset.y});
    m_isShowing = false;
}

// A bar that has not been moved may be out of date.
void ViewScrolling::followBars(int dx, int dy) {
    if (m_isShowing) return;
    const Point offset = m_textView.scrollView()->contentOffset();
    m_textView.setContentOffset(
        {.x = dx == 0 ? offset.x : m_horizontal.offset(), .y = dy == 0 ? offset.y : m_vertical.offset()});
}

bool ViewScrolling::moveBy(const QPointF& step) {
    const Point before = m_textView.scrollView()->contentOffset();
    m_textView.setContentOffset({.x = before.x + step.x(), .y = before.y + step.y()});
    return m_textView.scrollView()->contentOffset() != before;
}

void ViewScrolling::prepare(QScrollPrepareEvent& event) const {
    const QPointF minimum = toQt(m_textView.minimumContentOffset());
    event.setViewportSize(toQt(m_textView.scrollView()->frame()).size());
    event.setContentPosRange(QRectF(minimum, toQt(m_textView.maximumContentOffset())));
    event.setContentPos(toQt(m_textView.scrollView()->contentOffset()));
    event.accept();
}

void ViewScrolling::follow(const QScrollEvent& event) {
    m_textView.setContentOffset(fromQt(event.contentPos()));
}

} // namespace tessarine
