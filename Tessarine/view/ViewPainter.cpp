#include "Tessarine/view/ViewPainter.h"

#include "Tessarine/layout/ScrollView.h"
#include "Tessarine/view/DevicePixels.h"
#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/QtDrawContext.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>

namespace tessarine {

namespace {

// A picture of a view that scrolls would show another part of it after the next step.
bool scrolls(const View& view) {
    return dynamic_cast<const ScrollView*>(&view) != nullptr;
}

QRectF square(const QPointF& corner, double radius) {
    return {corner - QPointF(radius, radius), corner + QPointF(radius, radius)};
}

QPainterPath roundedRect(const QRectF& area, double wantedRadius, const CornerMask& corners) {
    const double radius = std::min({wantedRadius, area.width() / 2, area.height() / 2});
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(area, radius, radius);
    for (const auto& [isRound, corner] :
         {std::pair(corners.topLeft, area.topLeft()), std::pair(corners.topRight, area.topRight()),
          std::pair(corners.bottomLeft, area.bottomLeft()),
          std::pair(corners.bottomRight, area.bottomRight())})
        if (!isRound) path.addRect(square(corner, radius) & area);
    return path;
}

} // namespace

ViewPainter::ViewPainter(QPainter& painter, const QRegion& region, ViewPictures& pictures,
                         UserInterfaceStyle style)
    : m_painter(painter)
    , m_region(region)
    , m_pictures(pictures)
    , m_style(style)
    , m_scale(painter.device()->devicePixelRatio()) {}

void ViewPainter::paint(View& root) {
    paint(root, {0, 0});
}

void ViewPainter::paint(View& view, const QPointF& origin) {
    if (view.isHidden()) return;
    const QRectF frame(origin, QSizeF(view.frame().width, view.frame().height));
    const QRectF area = onDevicePixels(frame, m_scale);
    // As much of it as the toolkit's whole numbers can hold.
    const QRectF shown = area & QRectF(m_region.boundingRect());
    if (!shown.isEmpty() && m_region.intersects(shown.toAlignedRect())) {
        paintBackground(view, area);
        paintContent(view, area);
    }
    if (!scrolls(view)) return paintSubviews(view, origin);
    m_painter.save();
    m_painter.setClipRect(area, Qt::IntersectClip);
    paintSubviews(view, origin);
    m_painter.restore();
}

void ViewPainter::paintBackground(const View& view, const QRectF& area) {
    if (!view.backgroundColor()) return;
    const QColor color = toQt(view.backgroundColor()->resolved(m_style));
    if (view.cornerRadius() <= 0) return m_painter.fillRect(area & QRectF(m_region.boundingRect()), color);
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.fillPath(roundedRect(area, view.cornerRadius(), view.maskedCorners()).simplified(), color);
    m_painter.restore();
}

void ViewPainter::paintContent(View& view, const QRectF& area) {
    if (!scrolls(view) && ViewPictures::canKeep(view, m_scale)) {
        const QPixmap picture = m_pictures.pictureOf(view, m_scale, m_style);
        if (!picture.isNull()) m_painter.drawPixmap(area.topLeft(), picture);
        return;
    }
    m_painter.save();
    m_painter.setClipRect(area & QRectF(m_region.boundingRect()), Qt::IntersectClip);
    m_painter.translate(area.topLeft() - toQt(view.bounds().origin()));
    QtDrawContext context(m_painter, m_style);
    view.draw(context);
    view.didDisplay();
    m_painter.restore();
}

void ViewPainter::paintSubviews(const View& view, const QPointF& origin) {
    const QPointF content = origin - toQt(view.bounds().origin());
    for (const auto& subview : view.subviews())
        paint(*subview, content + toQt(subview->frame().origin()));
}

} // namespace tessarine
