#pragma once

#include <QtCore/QPoint>
#include <QtCore/QtGlobal>

class QMouseEvent;

namespace tessarine {

// Tells single, double and triple clicks apart; the toolkit knows of two, and of none by fingers.
class ClickCounter {
public:
    // The count that this press makes: 1 to 3, then from 1 again.
    int press(const QMouseEvent& event);

    // The same for a finger. The time is in ms.
    int tap(const QPoint& placeOnScreen, quint64 time);

private:
    // Whether it belongs to the press before.
    bool follows(const QPoint& place, quint64 time, int distance);

    QPoint m_place;     // on the screen
    quint64 m_time = 0; // of the last press, in ms
    int m_count = 0;
};

} // namespace tessarine
