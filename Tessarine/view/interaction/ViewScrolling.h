#pragma once

#include "Tessarine/view/interaction/ScrollAxis.h"

#include <QtCore/QPointF>

class QAbstractScrollArea;
class QScrollEvent;
class QScrollPrepareEvent;

namespace tessarine {

class TextView;

// Keeps the scroll bars and the offset of a text view in step, and moves it by wheel and finger. In points.
class ViewScrolling {
public:
    // Borrows both.
    ViewScrolling(TextView& textView, const QAbstractScrollArea& area);

    // The view has scrolled or has another content.
    void showInBars();

    // The bars have been moved, each by so much.
    void followBars(int dx, int dy);

    // False if that is not possible.
    bool moveBy(const QPointF& step);

    // What kinetic scrolling asks for.
    void prepare(QScrollPrepareEvent& event) const;
    void follow(const QScrollEvent& event);

private:
    TextView& m_textView;
    ScrollAxis m_horizontal;
    ScrollAxis m_vertical;
    bool m_isShowing = false; // the bars move because the view has
};

} // namespace tessarine
