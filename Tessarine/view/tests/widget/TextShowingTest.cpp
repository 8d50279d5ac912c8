#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtGui/QPaintEvent>
#include <QtWidgets/QApplication>

#include <algorithm>

using namespace tessarine;

namespace {

// Notes what of a widget is painted.
struct PaintNotes : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++paints;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }

    int paints = 0;
    QRegion region;
};

struct TextShowingTest : ShownTextView {
    TextShowingTest() {
        QApplication::setCursorFlashTime(0);
        widget.viewport()->installEventFilter(&notes);
    }

    ~TextShowingTest() override { QApplication::setCursorFlashTime(flashTime); }

    QRegion paintedBy(auto change) {
        settle();
        notes.region = {};
        notes.paints = 0;
        change();
        settle();
        return notes.region;
    }

    QColor colorAt(const QPoint& place) const {
        return widget.viewport()->grab().toImage().pixelColor(place);
    }

    bool isCaretAt(std::int64_t location) const {
        const QRect caret = inViewport(view, view.caretRect(location)).toAlignedRect();
        const QImage picture = widget.viewport()->grab().toImage();
        int darkest = 255;
        for (int x = caret.left(); x <= caret.right(); ++x)
            darkest = std::min(darkest, picture.pixelColor(x, caret.center().y()).lightness());
        return darkest < 128;
    }

    const int flashTime = QApplication::cursorFlashTime();
    PaintNotes notes;
};

TEST_F(TextShowingTest, AKeyPaintsItsRowOnce) {
    showRows(50);
    view.movement().select(10, 10);
    const QRegion painted = paintedBy([&] { type("x"); });
    EXPECT_FALSE(painted.isEmpty());
    EXPECT_LE(painted.boundingRect().height(), view.lineHeight() * 1.5);
    EXPECT_EQ(notes.paints, 1);
    const QRegion moved = paintedBy([&] { press(Qt::Key_Right); });
    EXPECT_LE(moved.boundingRect().width(), 60);
    EXPECT_TRUE(paintedBy([] {}).isEmpty());
}

TEST_F(TextShowingTest, ShowsACaretWhereThereIsTheFocus) {
    show(u"   \n   ", 2);
    EXPECT_TRUE(isCaretAt(2));
    widget.clearFocus();
    settle();
    EXPECT_FALSE(view.isEditing());
    EXPECT_FALSE(isCaretAt(2));
    widget.setFocus();
    settle();
    EXPECT_TRUE(view.isEditing());
    EXPECT_TRUE(isCaretAt(2));
    view.setEditable(false);
    settle();
    EXPECT_FALSE(isCaretAt(2));
}

TEST_F(TextShowingTest, TheCaretBlinksButNotWhileOneTypes) {
    show(u"   \n   ", 2);
    QApplication::setCursorFlashTime(40);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isCaretAt(2); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isCaretAt(2); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isCaretAt(2); }));
    QApplication::setCursorFlashTime(10'000);
    press(Qt::Key_Left);
    settle();
    EXPECT_TRUE(isCaretAt(1));
}

TEST_F(TextShowingTest, IsLightOrDarkAsThePaletteIs) {
    const QPoint corner = widget.viewport()->rect().bottomRight() - QPoint(2, 2);
    EXPECT_GT(colorAt(corner).lightness(), 200);
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    widget.setPalette(dark);
    EXPECT_LT(colorAt(corner).lightness(), 60);
    widget.setUserInterfaceStyle(UserInterfaceStyle::Light);
    EXPECT_GT(colorAt(corner).lightness(), 200);
    widget.setUserInterfaceStyle(std::nullopt);
    EXPECT_LT(colorAt(corner).lightness(), 60);
}

TEST_F(TextShowingTest, AMenuDoesNotEndEditing) {
    QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&widget, &toMenu);
    EXPECT_TRUE(view.isEditing());
    QFocusEvent away(QEvent::FocusOut, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(&widget, &away);
    EXPECT_FALSE(view.isEditing());
}

TEST_F(TextShowingTest, ShowsWhereTheCaretGoes) {
    showRows(500);
    press(Qt::Key_End, Qt::ControlModifier);
    settle();
    EXPECT_NEAR(view.scrollView()->contentOffset().y, view.maximumContentOffset().y, view.lineHeight());
    EXPECT_TRUE(widget.viewport()->rect().contains(placeOf(view.movement().head())));
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    settle();
    EXPECT_TRUE(widget.viewport()->rect().contains(placeOf(view.movement().head())));
}

TEST(QtTextViewLifetime, EndsAtAnyTime) {
    const auto first = std::make_unique<QtTextView>();
    auto widget = std::make_unique<QtTextView>();
    widget->show();
    widget->setFocus();
    widget->textView().setText(u"text");
    widget->textView().movement().selectAll();
    widget->copy();
    widget.reset();
    QCoreApplication::processEvents();
    first->paste();
    EXPECT_EQ(first->textView().text(), u"");
    first->selectAll();
    first->paste();
    EXPECT_EQ(first->textView().text(), u"text");
}

} // namespace
