#include "Tessarine/view/gallery/PaintedView.h"

#include "Tessarine/view/ViewPainter.h"

#include <QtGui/QPainter>

namespace tessarine {

QImage paintedView(View& view, Size size, int scale, UserInterfaceStyle style) {
    const QSize points(static_cast<int>(size.width), static_cast<int>(size.height));
    QImage image(points * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    ViewPictures pictures;
    view.layoutIfNeeded();
    ViewPainter(painter, QRegion(QRect(QPoint(), points)), pictures, style).paint(view);
    return image;
}

} // namespace tessarine
