#include "Tessarine/view/interaction/TextDrag.h"

#include "Tessarine/view/interaction/TextClipboard.h"
#include "Tessarine/view/interaction/ViewScrolling.h"
#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>

#include <functional>
#include <memory>

using namespace tessarine;

namespace {

struct TextDragTest : ShownTextView {
    // From another program; tells whether it was taken.
    bool drop(const QMimeData& data, const QPoint& place) {
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget.viewport(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget.viewport(), &event);
        settle();
        return event.isAccepted();
    }
};

TEST_F(TextDragTest, TakesTextFromOtherPrograms) {
    show(u"one two");
    QMimeData data;
    data.setText(QStringLiteral("a\r\nb "));
    EXPECT_TRUE(drop(data, placeOf(4)));
    EXPECT_EQ(view.text(), u"one a\nb two");
    EXPECT_EQ(ends(), Ends(4, 8));
    view.undo();
    EXPECT_EQ(view.text(), u"one two");
}

TEST_F(TextDragTest, LeavesFilesAndWhatItMayNotTake) {
    show(u"one two");
    QMimeData files;
    files.setUrls({QUrl(QStringLiteral("file:///tmp/a.txt"))});
    EXPECT_FALSE(drop(files, placeOf(4)));
    QMimeData text;
    text.setText(QStringLiteral("x"));
    view.setEditable(false);
    EXPECT_FALSE(drop(text, placeOf(4)));
    EXPECT_EQ(view.text(), u"one two");
}

// What leaves the view is dropped as the test wants it.
struct TextDragAwayTest : ShownTextView {
    TextDragAwayTest() {
        show(u"one two three");
        view.movement().select(0, 4);
    }

    Qt::DropAction dropHere(const QMimeData& data, Qt::DropAction action) {
        QDropEvent event(placeOf(8), action, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(action);
        drag.drop(event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    TextClipboard clipboard{view};
    ViewScrolling scrolling{view, widget};
    std::function<Qt::DropAction(const QMimeData&, Qt::DropActions)> dropped;
    TextDrag drag{
        view, clipboard, scrolling, *widget.viewport(),
        [this](std::unique_ptr<QMimeData> data, Qt::DropActions actions) { return dropped(*data, actions); }};
};

TEST_F(TextDragAwayTest, MovesWithinTheView) {
    dropped = [&](const QMimeData& data, Qt::DropActions /*actions*/) {
        return dropHere(data, Qt::MoveAction);
    };
    drag.start();
    EXPECT_EQ(view.text(), u"two one three");
    EXPECT_EQ(ends(), Ends(4, 8));
    view.undo();
    EXPECT_EQ(view.text(), u"one two three");
}

TEST_F(TextDragAwayTest, CopiesWithinTheView) {
    dropped = [&](const QMimeData& data, Qt::DropActions /*actions*/) {
        return dropHere(data, Qt::CopyAction);
    };
    drag.start();
    EXPECT_EQ(view.text(), u"one two one three");
    EXPECT_EQ(ends(), Ends(8, 12));
}

TEST_F(TextDragAwayTest, WhatIsMovedElsewhereIsGoneHere) {
    dropped = [](const QMimeData& data, Qt::DropActions /*actions*/) {
        EXPECT_EQ(data.text(), QStringLiteral("one "));
        return Qt::CopyAction;
    };
    drag.start();
    EXPECT_EQ(view.text(), u"one two three");
    dropped = [](const QMimeData& /*data*/, Qt::DropActions /*actions*/) { return Qt::MoveAction; };
    drag.start();
    EXPECT_EQ(view.text(), u"two three");
}

TEST_F(TextDragAwayTest, RemovesNothingElse) {
    dropped = [&](const QMimeData& /*data*/, Qt::DropActions /*actions*/) {
        view.replace({.location = 0, .length = 8}, u"");
        return Qt::MoveAction;
    };
    drag.start();
    EXPECT_EQ(view.text(), u"three");
    view.movement().selectAll();
    view.setEditable(false);
    dropped = [](const QMimeData& /*data*/, Qt::DropActions actions) {
        EXPECT_EQ(actions, Qt::CopyAction);
        return Qt::MoveAction;
    };
    drag.start();
    EXPECT_EQ(view.text(), u"three");
}

} // namespace
