#include "platform/screens/appearance/ContinuousCorners.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace platform {

namespace {

// The corner is a quarter of a superellipse: from the third power on its curvature vanishes at both ends.
constexpr double power = 3;
constexpr int steps = 16;

// How far the corner reaches along an edge, in radiuses, so that its middle lies where a circle's would.
const double reach = (1 - std::pow(2, -1 / 2.0)) / (1 - std::pow(2, -1 / power));

// From (0, 1) to (1, 0) around the origin's corner of the unit square.
std::array<QPointF, steps + 1> makeCorner() {
    std::array<QPointF, steps + 1> points;
    for (int i = 0; i <= steps; i++) {
        const double angle = std::numbers::pi / 2 * i / steps;
        points[i] = {1 - std::pow(std::cos(angle), 2 / power), 1 - std::pow(std::sin(angle), 2 / power)};
    }
    points[0] = {0, 1};
    points[steps] = {1, 0};
    return points;
}

} // namespace

QPainterPath continuousRoundedPath(const QRectF& rect, qreal radius) {
    static const auto corner = makeCorner();
    const qreal size = std::min({radius * reach, rect.width() / 2, rect.height() / 2});
    QPolygonF outline;
    for (const QPointF point : corner)
        outline << rect.topLeft() + point * size;
    for (const QPointF point : corner)
        outline << rect.topRight() + QPointF(-point.y(), point.x()) * size;
    for (const QPointF point : corner)
        outline << rect.bottomRight() - point * size;
    for (const QPointF point : corner)
        outline << rect.bottomLeft() + QPointF(point.y(), -point.x()) * size;
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

QRegion continuousRoundedRegion(const QRect& rect, qreal radius) {
    const int size = std::min({int(std::ceil(radius * reach)), rect.width() / 2, rect.height() / 2});
    QImage coverage(size, size, QImage::Format_Alpha8);
    coverage.fill(Qt::transparent);
    QPainter painter(&coverage);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedPath(QRect(QPoint(), rect.size()), radius), Qt::black);
    painter.end();
    QRegion region(rect.adjusted(0, size, 0, -size));
    for (int row = 0; row < size; row++) {
        const auto* begin = coverage.constScanLine(row);
        const int inset = int(std::find(begin, begin + size, 0xFF) - begin);
        const QRect line(rect.left() + inset, rect.top() + row, rect.width() - 2 * inset, 1);
        region += line;
        region += line.translated(0, rect.height() - 1 - 2 * row);
    }
    return region;
}

} // namespace platform
