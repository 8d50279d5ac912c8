#include "Tessarine/view/gallery/PaintedView.h"

#include <QtGui/QPainter>

namespace tessarine {

QImage paintedView(View& root, double scale, UserInterfaceStyle style) {
    const QSize size(static_cast<int>(root.frame().width), static_cast<int>(root.frame().height));
    QImage image(size * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    ViewPictures pictures;
    root.layoutIfNeeded();
    ViewPainter(painter, QRegion(QRect(QPoint(), size)), pictures, style).paint(root);
    return image;
}

} // namespace tessarine
