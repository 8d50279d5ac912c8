#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

// A white picture of 40 by 40 points.
QImage drawn(const QString& name, const QColor& tint, qreal scale, QPointF at = {10, 10}) {
    QImage image(QSize(40, 40) * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawSymbol(painter, QRectF(at, QSizeF(20, 20)), name, tint);
    return image;
}

bool contains(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color) return true;
    return false;
}

TEST(SymbolTest, EveryNameOfTheScreensHasAShape) {
    for (const char* name : {"app.badge.fill",
                             "arrow.up.arrow.down",
                             "calendar",
                             "checkmark",
                             "checkmark.alt",
                             "checkmark.circle",
                             "chevron.down",
                             "chevron.left",
                             "chevron.right",
                             "chevron.up",
                             "doc",
                             "doc.fill",
                             "doc.on.doc",
                             "doc.text.fill",
                             "ellipsis",
                             "ellipsis.circle",
                             "exclamationmark.triangle.fill",
                             "folder",
                             "folder.badge.plus",
                             "folder.fill",
                             "gear.alt",
                             "keyboard.chevron.compact.down",
                             "paintpalette.fill",
                             "plus",
                             "plus.app.fill",
                             "rectangle.and.pencil.and.ellipsis",
                             "search",
                             "square.arrow.down",
                             "tag",
                             "tag.circle",
                             "tag.fill",
                             "textformat.abc",
                             "trash",
                             "trash.fill",
                             "xmark",
                             "xmark.circle.fill"})
        EXPECT_NE(drawn(q(name), Qt::red, 2), drawn(q(name), Qt::white, 2)) << name;
}

// What is remembered of one look is not taken for another.
TEST(SymbolTest, ColourSizeAndScaleAreTheCallers) {
    EXPECT_TRUE(contains(drawn(q("tag.fill"), Qt::red, 1), Qt::red));
    EXPECT_TRUE(contains(drawn(q("tag.fill"), Qt::blue, 1), Qt::blue));
    EXPECT_FALSE(contains(drawn(q("tag.fill"), Qt::blue, 1), Qt::red));
    const QImage fine = drawn(q("tag.fill"), Qt::red, 2);
    EXPECT_NE(fine.scaled(40, 40, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).scaled(80, 80), fine);
    EXPECT_EQ(drawn(q("tag.fill"), Qt::red, 2), fine);
    // Between two pixels it stays as sharp as on one.
    EXPECT_EQ(drawn(q("tag.fill"), Qt::red, 1, {10.3, 9.8}), drawn(q("tag.fill"), Qt::red, 1));
}

} // namespace
