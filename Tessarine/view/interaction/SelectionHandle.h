#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

#include <functional>

class QTouchEvent;

namespace tessarine {

// A grip below one end of a selection, for fingers. It only tells where it is dragged to.
class SelectionHandle final : public QWidget {
    Q_OBJECT

public:
    struct Actions {
        std::function<void()> begin;
        std::function<void(const QPointF& tip)> drag; // the place in the viewport
        std::function<void()> end;
    };

    SelectionHandle(QWidget* viewport, Actions actions);

    // Where the tip, its top centre, is to be.
    void pointAt(const QPointF& tip);

    void setColor(const QColor& color);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void grip(const QPointF& place);
    void dragTo(const QPointF& place);
    void letGo();
    bool touch(const QTouchEvent& event);

    const Actions m_actions;
    QColor m_color;
    bool m_isDragged = false;
    QPointF m_fromFinger; // to the tip
};

} // namespace tessarine
