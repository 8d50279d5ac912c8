#pragma once

#include "Tessarine/layout/ViewHost.h"

#include <QtGui/QRegion>

class QWidget;

namespace tessarine {

// Has a widget painted where its views have changed.
class QtViewHost final : public ViewHost {
public:
    // The widget outlives it, or lets go of its views before.
    explicit QtViewHost(QWidget& widget)
        : m_widget(widget) {}

    void viewNeedsDisplay(const Rect& rect) override;

    // What is being painted; changes within it need no painting of their own.
    void setPaintedRegion(const QRegion& region) { m_paintedRegion = region; }

private:
    QWidget& m_widget;
    QRegion m_paintedRegion;
};

} // namespace tessarine
