#pragma once

#include "Tessarine/view/QtTextView.h"
#include "Tessarine/view/interaction/ViewPlaces.h"

#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace tessarine {

// A widget on the screen that has the keyboard's focus.
struct ShownTextView : ::testing::Test {
    ShownTextView() {
        widget.resize(500, 300);
        widget.show();
        widget.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
        widget.setFocus();
        settle();
    }

    // What a change brings about may change more.
    static void settle() {
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::processEvents();
    }

    void show(std::u16string_view text, std::int64_t caret = 0) {
        view.setText(text);
        view.movement().select(caret, caret);
        settle();
    }

    // Lines `row 0`, `row 1`, and so on.
    void showRows(int count) {
        std::u16string text;
        for (int row = 0; row < count; ++row)
            text += fromQt(QStringLiteral("row %1\n").arg(row));
        show(text);
    }

    // In the viewport, at the left edge of a character.
    QPoint placeOf(std::int64_t location) const {
        return inViewport(view, view.caretRect(location)).center().toPoint();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
    }

    void type(const char* keys) { QTest::keyClicks(&widget, QString::fromLatin1(keys)); }

    void mouse(QEvent::Type type, const QPoint& place, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const bool isDown = type != QEvent::MouseButtonRelease;
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, place, widget.viewport()->mapToGlobal(QPointF(place)),
                          isMove ? Qt::NoButton : Qt::LeftButton, isDown ? Qt::LeftButton : Qt::NoButton,
                          modifiers);
        event.setTimestamp(now);
        QCoreApplication::sendEvent(widget.viewport(), &event);
    }

    std::pair<std::int64_t, std::int64_t> ends() const {
        return {view.movement().anchor(), view.movement().head()};
    }

    quint64 now = 10'000; // ms, of mouse events
    QtTextView widget;
    TextView& view = widget.textView();
};

using Ends = std::pair<std::int64_t, std::int64_t>;

} // namespace tessarine
