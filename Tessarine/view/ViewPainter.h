#pragma once

#include "Tessarine/view/ViewPictures.h"

#include <QtGui/QRegion>

class QPainter;

namespace tessarine {

// Paints a tree of views, the root with its top left corner at the painter's origin. Views stand on whole
// device pixels. What a view draws is cut off at its edges; its subviews only if it scrolls.
class ViewPainter {
public:
    // What lies outside of the region need not be painted. All three outlive the painting.
    ViewPainter(QPainter& painter, const QRegion& region, ViewPictures& pictures, UserInterfaceStyle style);

    void paint(View& root);

private:
    void paint(View& view, const QPointF& origin);
    void paintBackground(const View& view, const QRectF& area);
    void paintContent(View& view, const QRectF& area);
    void paintSubviews(const View& view, const QPointF& origin);

    QPainter& m_painter;
    const QRegion& m_region;
    ViewPictures& m_pictures;
    const UserInterfaceStyle m_style;
    const double m_scale; // device pixels a point
};

} // namespace tessarine
