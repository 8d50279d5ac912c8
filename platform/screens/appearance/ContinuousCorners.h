#pragma once

#include <QtGui/QPainterPath>
#include <QtGui/QRegion>

namespace platform {

// A rectangle whose straight edges run into its corners without a jump in curvature. Where the corner turns
// it touches the same point as a circle's arc of `radius` points would. A radius too large for the rectangle
// is cut down to what fits.
QPainterPath continuousRoundedPath(const QRectF& rect, qreal radius);

// The points that lie wholly inside of that path. As a widget's mask over the path painted smoothly in the
// widget's own ground it leaves no jagged edge.
QRegion continuousRoundedRegion(const QRect& rect, qreal radius);

} // namespace platform
