#include "platform/screens/controllers/CardPlacement.h"
#include "platform/screens/tests/ScreensTest.h"

using namespace platform;

namespace {

constexpr QRect bounds(0, 0, 1000, 700);
constexpr QSize size(300, 200);

QPointF tipOf(const CardPlacement& placement) {
    const QRectF body = placement.content;
    const QRectF all = placement.outline.boundingRect();
    return {all.left() < body.left() ? all.left() : all.right(),
            all.top() < body.top() ? all.top() : all.bottom()};
}

TEST(PopoverPlacement, PointsAtItsAnchorFromTheWantedSide) {
    const QRect anchor(480, 400, 40, 40);
    const auto above = bubblePlacement(bounds, anchor, Qt::BottomEdge, size);
    EXPECT_EQ(above.content.size(), size);
    EXPECT_LT(above.content.bottom(), anchor.top());
    EXPECT_NEAR(tipOf(above).y(), anchor.top(), 2);
    EXPECT_GT(bubblePlacement(bounds, anchor, Qt::TopEdge, size).content.top(), anchor.bottom());
    EXPECT_GT(bubblePlacement(bounds, anchor, Qt::LeftEdge, size).content.left(), anchor.right());
    EXPECT_LT(bubblePlacement(bounds, anchor, Qt::RightEdge, size).content.right(), anchor.left());
}

TEST(PopoverPlacement, StaysInsideTheWindowWhereverItsAnchorIs) {
    for (int x = -50; x <= 1050; x += 50)
        for (int y = -50; y <= 750; y += 50)
            for (const auto edge : {Qt::TopEdge, Qt::BottomEdge, Qt::LeftEdge, Qt::RightEdge})
                for (const QSize wanted : {size, QSize(2000, 2000)}) {
                    const auto placement = bubblePlacement(bounds, QRect(x, y, 20, 20), edge, wanted);
                    EXPECT_TRUE(bounds.contains(placement.content)) << x << ' ' << y << ' ' << edge;
                    EXPECT_FALSE(placement.content.isEmpty()) << x << ' ' << y << ' ' << edge;
                }
    EXPECT_GT(bubblePlacement(bounds, QRect(500, 10, 20, 20), Qt::BottomEdge, size).content.top(), 30)
        << "no room above, so it is below";
}

class PopoverTest : public ScreensTest {};

TEST_F(PopoverTest, IsASheetInANarrowWindow) {
    RecordingController window{QStringLiteral("W"), log};
    show(window);
    auto popover = screen("P");
    popover->modalPresentationStyle = ModalPresentationStyle::Popover;
    popover->popoverAnchor = {&window.field(), window.field().rect(), Qt::TopEdge};
    popover->setPreferredContentSize(size);
    const auto* shown = popover.get();
    window.present(std::move(popover));
    EXPECT_EQ(shown->size(), size);
    window.resize(390, 844);
    turn();
    EXPECT_EQ(shown->width(), 390);
    window.resize(1000, 700);
    turn();
    EXPECT_EQ(shown->size(), size);
    EXPECT_GT(shown->y(), window.field().geometry().bottom());
}

} // namespace
