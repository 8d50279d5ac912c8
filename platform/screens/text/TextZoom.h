#pragma once

#include <QtGui/QFont>

namespace platform {

// How much larger than its own size a text is shown: from half of it to four times. A value.
class TextZoom {
public:
    // 1 multiplies by nothing. What goes beyond the ends is dropped.
    void multiply(qreal factor);

    // In the wheel's units, eighths of a degree; small ones add up.
    void turn(int eighths);

    void reset() { m_factor = 1; }

    // Fonts change in steps of half a point, so that a slow pinch does not lay out a text for nothing.
    QFont applied(QFont font) const;

private:
    qreal m_factor = 1;
};

} // namespace platform
