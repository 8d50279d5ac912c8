#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtGui/QWheelEvent>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

using namespace tessarine;

namespace {

struct TextPointerTest : ShownTextView {
    void clickOn(std::int64_t location, Qt::KeyboardModifiers modifiers = {}) {
        mouse(QEvent::MouseButtonPress, placeOf(location), modifiers);
        mouse(QEvent::MouseButtonRelease, placeOf(location), modifiers);
    }

    // Presses as the toolkit tells them.
    void pressOn(std::int64_t location, int clicks) {
        now += 10'000;
        for (int click = 1; click <= clicks; ++click) {
            mouse(click == 2 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, placeOf(location));
            if (click < clicks) mouse(QEvent::MouseButtonRelease, placeOf(location));
            now += 50;
        }
    }

    void turnWheel(const QPoint& angle, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent event({5, 5}, {5, 5}, {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget.viewport(), &event);
        settle();
    }
};

TEST_F(TextPointerTest, ClicksPlaceAndExtend) {
    show(u"one two\nthree");
    clickOn(5);
    EXPECT_EQ(ends(), Ends(5, 5));
    clickOn(10, Qt::ShiftModifier);
    EXPECT_EQ(ends(), Ends(5, 10));
    clickOn(2, Qt::ShiftModifier);
    EXPECT_EQ(ends(), Ends(5, 2));
    mouse(QEvent::MouseButtonPress, placeOf(9));
    mouse(QEvent::MouseMove, placeOf(1));
    mouse(QEvent::MouseButtonRelease, placeOf(1));
    EXPECT_EQ(ends(), Ends(9, 1));
}

TEST_F(TextPointerTest, AReleaseThatWentElsewhereEndsTheDrag) {
    show(u"one two\nthree");
    mouse(QEvent::MouseButtonPress, placeOf(9));
    QTest::mouseMove(widget.viewport(), placeOf(1));
    QTest::mouseMove(widget.viewport(), placeOf(3));
    EXPECT_EQ(ends(), Ends(9, 9));
}

TEST_F(TextPointerTest, SelectsWordsAndLinesByTwoAndThreeClicks) {
    show(u"one two\nthree four\nfive");
    pressOn(10, 2);
    EXPECT_EQ(ends(), Ends(8, 13));
    mouse(QEvent::MouseMove, placeOf(15));
    EXPECT_EQ(ends(), Ends(8, 18));
    mouse(QEvent::MouseMove, placeOf(5));
    EXPECT_EQ(ends(), Ends(13, 4));
    mouse(QEvent::MouseButtonRelease, placeOf(5));
    pressOn(10, 3);
    EXPECT_EQ(ends(), Ends(8, 19));
    mouse(QEvent::MouseMove, placeOf(20));
    EXPECT_EQ(ends(), Ends(8, 23));
    mouse(QEvent::MouseButtonRelease, placeOf(20));
    now += 10'000;
    clickOn(20);
    EXPECT_EQ(ends(), Ends(20, 20)) << "on selected text, once it is let go";
}

TEST_F(TextPointerTest, SelectsLinesOnTheirNumbers) {
    show(u"one\ntwo\nthree");
    view.setShowLineNumbers(true);
    settle();
    const QPoint gutter(3, placeOf(5).y());
    mouse(QEvent::MouseMove, gutter);
    mouse(QEvent::MouseButtonPress, gutter);
    EXPECT_EQ(ends(), Ends(4, 8));
    mouse(QEvent::MouseMove, {3, placeOf(9).y()});
    EXPECT_EQ(ends(), Ends(4, 13));
    mouse(QEvent::MouseButtonRelease, {3, placeOf(9).y()});
}

TEST_F(TextPointerTest, ShowsWhatAPressWouldDo) {
    show(u"one");
    view.setShowLineNumbers(true);
    settle();
    QTest::mouseMove(widget.viewport(), QPoint(2, 20));
    EXPECT_EQ(widget.viewport()->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(widget.viewport(), QPoint(200, 20));
    EXPECT_EQ(widget.viewport()->cursor().shape(), Qt::IBeamCursor);
}

TEST_F(TextPointerTest, DraggingBeyondAnEdgeScrollsAndSelects) {
    showRows(200);
    mouse(QEvent::MouseButtonPress, placeOf(2));
    mouse(QEvent::MouseMove, {20, 340});
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.scrollView()->contentOffset().y > 200; }));
    EXPECT_GT(view.movement().head(), 100);
    mouse(QEvent::MouseMove, {20, 100});
    const Point offset = view.scrollView()->contentOffset();
    settle();
    EXPECT_EQ(view.scrollView()->contentOffset(), offset);
    mouse(QEvent::MouseButtonRelease, {20, 100});
}

TEST_F(TextPointerTest, ClickingOnSelectedTextLetsGoOfItAtTheEnd) {
    show(u"one two");
    view.movement().select(0, 7);
    settle();
    mouse(QEvent::MouseButtonPress, placeOf(4));
    EXPECT_EQ(ends(), Ends(0, 7));
    mouse(QEvent::MouseButtonRelease, placeOf(4));
    EXPECT_EQ(ends(), Ends(4, 4));
}

TEST_F(TextPointerTest, TheWheelScrolls) {
    showRows(200);
    turnWheel({0, -120});
    EXPECT_NEAR(view.scrollView()->contentOffset().y, 3 * view.lineHeight(), 0.01);
    EXPECT_EQ(widget.verticalScrollBar()->value(), qRound(3 * view.lineHeight()));
    turnWheel({0, 1200});
    EXPECT_EQ(view.scrollView()->contentOffset().y, 0);
    const QSignalSpy zoom(&widget, &QtTextView::zoomRequested);
    turnWheel({0, 240}, Qt::ControlModifier);
    ASSERT_EQ(zoom.count(), 1);
    EXPECT_EQ(zoom.front().front().toInt(), 2);
    EXPECT_EQ(view.scrollView()->contentOffset().y, 0);
}

TEST_F(TextPointerTest, ShiftedWheelGoesSideways) {
    view.setLineWrappingEnabled(false);
    show(std::u16string(500, u'x'));
    turnWheel({0, -120}, Qt::ShiftModifier);
    EXPECT_GT(view.scrollView()->contentOffset().x, 20);
    EXPECT_EQ(widget.horizontalScrollBar()->value(), qRound(view.scrollView()->contentOffset().x));
}

TEST_F(TextPointerTest, BarsAndViewMoveEachOther) {
    showRows(300);
    EXPECT_NEAR(widget.verticalScrollBar()->maximum(), view.maximumContentOffset().y, 1);
    widget.verticalScrollBar()->setValue(1000);
    EXPECT_EQ(view.scrollView()->contentOffset().y, 1000);
    view.setContentOffset({0, 50.25});
    settle();
    EXPECT_EQ(widget.verticalScrollBar()->value(), 50);
    EXPECT_EQ(view.scrollView()->contentOffset().y, 50.25);
    show(u"short");
    EXPECT_EQ(widget.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(view.scrollView()->contentOffset().y, 0);
}

struct Replacing : TextViewDelegate {
    bool textViewCanReplaceTextInHighlightedRange(TextView& /*view*/,
                                                  const HighlightedRange& /*range*/) override {
        return true;
    }

    void textViewReplaceTextInHighlightedRange(TextView& view, const HighlightedRange& range) override {
        view.replace(range.range, u"new");
    }
};

QAction* actionOf(const QMenu& menu, const char* title) {
    for (QAction* const action : menu.actions())
        if (action->text().remove(QLatin1Char('&')) == QLatin1String(title)) return action;
    return nullptr;
}

TEST_F(TextPointerTest, TheMenuOffersWhatCanBeDone) {
    show(u"one two");
    auto menu = widget.createContextMenu();
    for (const char* const title : {"Undo", "Redo", "Cut", "Copy"})
        EXPECT_FALSE(actionOf(*menu, title)->isEnabled()) << title;
    EXPECT_FALSE(actionOf(*menu, "Replace"));
    actionOf(*menu, "Select All")->trigger();
    menu = widget.createContextMenu();
    actionOf(*menu, "Cut")->trigger();
    EXPECT_EQ(view.text(), u"");
    menu = widget.createContextMenu();
    actionOf(*menu, "Paste")->trigger();
    EXPECT_EQ(view.text(), u"one two");
}

TEST_F(TextPointerTest, TheMenuReplacesAHighlightedRange) {
    show(u"old text");
    const auto delegate = std::make_shared<Replacing>();
    view.setEditorDelegate(delegate);
    view.setHighlightedRanges(
        {std::make_shared<HighlightedRange>(HighlightedRange{.range = {.location = 0, .length = 3}})});
    EXPECT_FALSE(actionOf(*widget.createContextMenu(), "Replace"));
    view.selectNextHighlightedRange();
    const auto menu = widget.createContextMenu();
    ASSERT_TRUE(actionOf(*menu, "Replace"));
    actionOf(*menu, "Replace")->trigger();
    EXPECT_EQ(view.text(), u"new text");
}

} // namespace
