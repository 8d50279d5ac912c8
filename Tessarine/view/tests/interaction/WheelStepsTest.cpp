#include "Tessarine/view/interaction/WheelSteps.h"

#include <QtGui/QWheelEvent>
#include <gtest/gtest.h>

using namespace tessarine;

namespace {

QWheelEvent wheel(QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = {}) {
    return {{}, {}, pixels, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false};
}

TEST(WheelSteps, GoesByPixelsOrByThreeLinesANotch) {
    EXPECT_EQ(scrolledBy(wheel({}, {0, -120}), 20), QPointF(0, 60));
    EXPECT_EQ(scrolledBy(wheel({}, {0, 30}), 20), QPointF(0, -15));
    EXPECT_EQ(scrolledBy(wheel({}, {240, 0}), 20), QPointF(-120, 0));
    EXPECT_EQ(scrolledBy(wheel({3, -7}, {0, -120}), 20), QPointF(-3, 7));
}

TEST(WheelSteps, ShiftGoesSidewaysUnlessTheWheelAlreadyDoes) {
    EXPECT_EQ(scrolledBy(wheel({}, {0, -120}, Qt::ShiftModifier), 20), QPointF(60, 0));
    EXPECT_EQ(scrolledBy(wheel({}, {-120, 0}, Qt::ShiftModifier), 20), QPointF(60, 0));
}

TEST(WheelNotches, AddsUpPartsOfANotch) {
    WheelNotches notches;
    EXPECT_EQ(notches.add(wheel({}, {0, 80})), 0);
    EXPECT_EQ(notches.add(wheel({}, {0, 80})), 1);
    EXPECT_EQ(notches.add(wheel({}, {0, -160})), -1);
    EXPECT_EQ(notches.add(wheel({}, {0, 360})), 3);
}

} // namespace
