#pragma once

#include <QtCore/QPointF>

class QWheelEvent;

namespace tessarine {

// How far a turn of the wheel moves over the content, in points: by the pixels that the device tells, else by
// as many lines a notch as the desktop has set. Shift turns it sideways.
QPointF scrolledBy(const QWheelEvent& wheel, double lineHeight);

// Counts notches; devices also send parts of one.
class WheelNotches {
public:
    // Whole ones, positive away from the user.
    int add(const QWheelEvent& wheel);

private:
    int m_rest = 0; // eighths of a degree
};

} // namespace tessarine
