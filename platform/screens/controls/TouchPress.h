#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointF>

class QAbstractButton;
class QTouchEvent;

namespace platform {

// For a button inside of what a finger scrolls: a tap presses it, and a finger that moves presses nothing.
// The mouse events that the toolkit makes of touches would press it at the end of the scrolling as well.
// Owned by the button; main thread.
class TouchPress : public QObject {
    Q_OBJECT

public:
    static void attach(QAbstractButton& button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit TouchPress(QAbstractButton& button);

    void touched(const QTouchEvent& event);

    QAbstractButton& m_button;
    QPointF m_begin;
};

} // namespace platform
