#include "platform/screens/appearance/ContinuousCorners.h"

#include <gtest/gtest.h>

namespace platform {

TEST(ContinuousCorners, TouchWhereAnArcWouldAndFillTheRest) {
    const QRectF rect(10, 20, 200, 100);
    const QPainterPath path = continuousRoundedPath(rect, 20);
    EXPECT_EQ(path.boundingRect(), rect);
    // 20 points of radius less its part along the diagonal.
    const QPointF touch = rect.topLeft() + QPointF(5.858, 5.858);
    EXPECT_FALSE(path.contains(touch - QPointF(0.1, 0.1)));
    EXPECT_TRUE(path.contains(touch + QPointF(0.1, 0.1)));
    // The curve begins further out than an arc: there the edge is left already.
    EXPECT_FALSE(path.contains(QPointF(10 + 20, 20.02)));
    EXPECT_TRUE(path.contains(QPointF(10 + 29, 20.02)));
}

TEST(ContinuousCorners, MirrorInAllFourCorners) {
    const QRect rect(3, 5, 90, 70);
    const QRegion region = continuousRoundedRegion(rect, 15);
    const QPainterPath path = continuousRoundedPath(rect, 15);
    for (int y = 0; y < rect.height(); y++)
        for (int x = 0; x < rect.width(); x++) {
            const QPoint at = rect.topLeft() + QPoint(x, y);
            const bool isInside = region.contains(at);
            EXPECT_EQ(isInside, region.contains(QPoint(rect.right() - x, at.y())));
            EXPECT_EQ(isInside, region.contains(QPoint(at.x(), rect.bottom() - y)));
            // No point of the region sticks out of the path.
            EXPECT_TRUE(!isInside || path.contains(QRectF(at, QSizeF(1, 1)).adjusted(.1, .1, -.1, -.1)));
        }
}

TEST(ContinuousCorners, FitIntoWhatIsSmallerThanTheirRadius) {
    EXPECT_EQ(continuousRoundedPath({0, 0, 10, 6}, 15).boundingRect(), QRectF(0, 0, 10, 6));
    EXPECT_TRUE(continuousRoundedRegion({0, 0, 10, 6}, 15).contains(QPoint(5, 3)));
}

} // namespace platform
