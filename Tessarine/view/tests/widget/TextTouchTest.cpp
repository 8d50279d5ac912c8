#include "Tessarine/view/interaction/SelectionHandle.h"
#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtGui/QPointingDevice>
#include <QtWidgets/QApplication>

using namespace tessarine;

namespace {

struct TextTouchTest : ShownTextView {
    void press(const QPoint& place) { QTest::touchEvent(widget.viewport(), device).press(0, place); }

    void move(const QPoint& place) { QTest::touchEvent(widget.viewport(), device).move(0, place); }

    void release(const QPoint& place) { QTest::touchEvent(widget.viewport(), device).release(0, place); }

    QList<SelectionHandle*> shownHandles() const {
        QList<SelectionHandle*> handles = widget.viewport()->findChildren<SelectionHandle*>();
        handles.removeIf([](const SelectionHandle* handle) { return handle->isHidden(); });
        return handles;
    }

    void pressLong(std::int64_t location) {
        press(placeOf(location));
        EXPECT_TRUE(QTest::qWaitFor([&] { return view.selectedRange()->length > 0; }));
        settle();
    }

    QPointingDevice* const device = QTest::createTouchDevice();
};

TEST_F(TextTouchTest, ATapPlacesTheCaret) {
    show(u"one two");
    press(placeOf(5));
    release(placeOf(5));
    EXPECT_EQ(ends(), Ends(5, 5));
}

TEST_F(TextTouchTest, TwoTapsSelectAWordAndThreeALine) {
    show(u"one two\nthree");
    const auto tap = [&] {
        press(placeOf(5));
        release(placeOf(5));
        settle();
    };
    tap();
    tap();
    EXPECT_EQ(ends(), Ends(4, 7));
    EXPECT_EQ(shownHandles().size(), 2);
    tap();
    EXPECT_EQ(ends(), Ends(0, 8));
    tap();
    EXPECT_EQ(ends(), Ends(5, 5));
    EXPECT_TRUE(shownHandles().isEmpty());
    press(placeOf(10));
    release(placeOf(10));
    EXPECT_EQ(ends(), Ends(10, 10)) << "of another place";
}

TEST_F(TextTouchTest, ASwipeScrolls) {
    showRows(200);
    const Ends before = ends();
    press({100, 250});
    for (int y = 240; y >= 50; y -= 10)
        move({100, y});
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.scrollView()->contentOffset().y > 100; }));
    release({100, 50});
    EXPECT_EQ(ends(), before);
}

TEST_F(TextTouchTest, TwoFingersDoNothing) {
    show(u"one two");
    QTest::touchEvent(widget.viewport(), device).press(0, placeOf(2)).press(1, placeOf(5));
    QTest::touchEvent(widget.viewport(), device).release(0, placeOf(2)).release(1, placeOf(5));
    EXPECT_EQ(ends(), Ends(0, 0));
}

TEST_F(TextTouchTest, ALongPressSelectsAWordAndShowsGrips) {
    show(u"one two three");
    pressLong(5);
    EXPECT_EQ(ends(), Ends(4, 7));
    EXPECT_EQ(shownHandles().size(), 2);
    move(placeOf(10));
    EXPECT_EQ(ends(), Ends(4, 13));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    release(placeOf(10));
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << "the menu";
    QApplication::activePopupWidget()->close();
    settle();
    EXPECT_EQ(shownHandles().size(), 2);
    ShownTextView::press(Qt::Key_Right);
    EXPECT_TRUE(shownHandles().isEmpty());
}

TEST_F(TextTouchTest, GripsAreDraggedPastEachOther) {
    show(u"one two three");
    pressLong(5);
    release(placeOf(5));
    QApplication::activePopupWidget()->close();
    SelectionHandle* const handle = shownHandles().back();
    const QPoint grip(handle->width() / 2, handle->height() / 2);
    const auto dragTo = [&](std::int64_t location) {
        const QPoint by = placeOf(location) - placeOf(view.movement().head());
        QTest::touchEvent(handle, device).move(0, grip + by);
        settle();
    };
    QTest::touchEvent(handle, device).press(0, grip);
    dragTo(10);
    EXPECT_EQ(ends(), Ends(4, 10));
    dragTo(1);
    EXPECT_EQ(ends(), Ends(4, 1));
    dragTo(4);
    EXPECT_EQ(ends(), Ends(4, 1)) << "something stays selected";
    QTest::touchEvent(handle, device).release(0, grip);
    EXPECT_EQ(shownHandles().size(), 2);
}

} // namespace
