#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtGui/QInputMethodEvent>

using namespace tessarine;

namespace {

struct TextInputMethodTest : ShownTextView {
    void compose(const char16_t* preedit, int cursor) {
        send({toQt(std::u16string_view(preedit)), {{QInputMethodEvent::Cursor, cursor, 1, {}}}});
    }

    void commit(const char16_t* text, int replacementStart = 0, int replacementLength = 0) {
        QInputMethodEvent event;
        event.setCommitString(toQt(std::u16string_view(text)), replacementStart, replacementLength);
        send(std::move(event));
    }

    void send(QInputMethodEvent&& event) { QCoreApplication::sendEvent(&widget, &event); }

    QVariant ask(Qt::InputMethodQuery query) {
        QInputMethodQueryEvent event(query);
        QCoreApplication::sendEvent(&widget, &event);
        return event.value(query);
    }
};

TEST_F(TextInputMethodTest, ComposesMarkedTextAndCommits) {
    show(u"ab", 1);
    compose(u"ni", 1);
    EXPECT_EQ(view.text(), u"anib");
    EXPECT_EQ(view.markedRange(), (TextRange{.location = 1, .length = 2}));
    EXPECT_EQ(view.movement().head(), 2);
    EXPECT_EQ(ask(Qt::ImSurroundingText).toString(), QStringLiteral("ab"));
    EXPECT_EQ(ask(Qt::ImCursorPosition).toInt(), 1);
    compose(u"nihao", 5);
    EXPECT_EQ(view.text(), u"anihaob");
    commit(u"你好");
    EXPECT_EQ(view.text(), u"a你好b");
    EXPECT_FALSE(view.markedRange());
    EXPECT_EQ(view.movement().head(), 3);
}

TEST_F(TextInputMethodTest, GivingUpLeavesTheText) {
    show(u"ab", 1);
    compose(u"x", 99);
    EXPECT_EQ(view.movement().head(), 2);
    compose(u"", 0);
    EXPECT_EQ(view.text(), u"ab");
    EXPECT_FALSE(view.markedRange());
    EXPECT_EQ(view.movement().head(), 1);
}

TEST_F(TextInputMethodTest, ReplacesAroundTheCaret) {
    show(u"teh end", 3);
    commit(u"the", -3, 3);
    EXPECT_EQ(view.text(), u"the end");
    commit(u"x", -1000, 2000);
    EXPECT_TRUE(view.text().starts_with(u"x"));
    show(u"e", 1);
    commit(u"é", -1, 1);
    EXPECT_EQ(view.text(), u"é");
}

TEST_F(TextInputMethodTest, SelectsInWhatItWasShown) {
    show(std::u16string(3000, u'x') + u"word", 3002);
    const int caret = ask(Qt::ImCursorPosition).toInt();
    send({{}, {{QInputMethodEvent::Selection, caret - 2, 4, {}}}});
    EXPECT_EQ(view.selectedRange(), (TextRange{.location = 3000, .length = 4}));
    EXPECT_EQ(ask(Qt::ImCurrentSelection).toString(), QStringLiteral("word"));
    send({{}, {{QInputMethodEvent::Selection, 1 << 30, 1 << 30, {}}}});
    EXPECT_LE(view.selectedRange()->limit(), 3004);
}

TEST_F(TextInputMethodTest, ShowsOnlyWhatIsAroundTheCaret) {
    std::u16string text;
    for (int i = 0; i < 5000; ++i)
        text += u"😀";
    show(text, 5000);
    EXPECT_LE(ask(Qt::ImSurroundingText).toString().size(), 2048);
    EXPECT_TRUE(ask(Qt::ImSurroundingText).toString().isValidUtf16());
    EXPECT_EQ(ask(Qt::ImAbsolutePosition).toInt(), 5000);
    view.movement().selectAll();
    EXPECT_LE(ask(Qt::ImCurrentSelection).toString().size(), 2048);
    EXPECT_EQ(widget.inputMethodQuery(Qt::ImTextBeforeCursor, 4).toString(), QStringLiteral("😀😀"));
    EXPECT_EQ(widget.inputMethodQuery(Qt::ImTextAfterCursor, 4).toString(), QString());
}

TEST_F(TextInputMethodTest, TellsWhereTheCaretIs) {
    show(u"one\ntwo", 5);
    const QRectF caret = ask(Qt::ImCursorRectangle).toRectF();
    EXPECT_EQ(caret.center().toPoint(), placeOf(5) + widget.viewport()->pos());
    EXPECT_TRUE(ask(Qt::ImEnabled).toBool());
    EXPECT_TRUE(ask(Qt::ImHints).toInt() & Qt::ImhMultiLine);
    view.setEditable(false);
    commit(u"x");
    EXPECT_EQ(view.text(), u"one\ntwo");
    EXPECT_FALSE(ask(Qt::ImEnabled).toBool());
}

TEST_F(TextInputMethodTest, AClickSettlesWhatIsComposed) {
    show(u"one two", 3);
    compose(u"x", 1);
    mouse(QEvent::MouseButtonPress, placeOf(7));
    mouse(QEvent::MouseButtonRelease, placeOf(7));
    EXPECT_EQ(view.text(), u"onex two");
    EXPECT_FALSE(view.markedRange());
    EXPECT_EQ(view.movement().head(), 7);
}

} // namespace
