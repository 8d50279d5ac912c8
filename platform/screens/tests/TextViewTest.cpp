#include "platform/screens/text/TextView.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace platform;

namespace {

const QString hostile = QStringLiteral("a\r\nb") + QChar(u'\0') + QChar(char16_t{0xD800}) + u'\r' +
                        QChar(u'\u00A0') + QChar(u'\u2028') + QStringLiteral("\nlast\r\n");

TEST(TextView, GivesAnyTextBackUnchanged) {
    TextView view;
    for (const QString& text : {hostile, QString(), QStringLiteral("\r\n"), QStringLiteral("no break")}) {
        view.setText(text);
        EXPECT_EQ(view.text(), text);
    }
}

TEST(TextView, TypingKeepsTheBreaksOfUntouchedLinesAndAddsTheDominantOne) {
    TextView view;
    view.setText(QStringLiteral("one\r\ntwo\r\nthree\nfour"));
    view.moveCursor(QTextCursor::End);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClicks(&view, QStringLiteral("five"));
    EXPECT_EQ(view.text(), QStringLiteral("one\r\ntwo\r\nthree\nfour\r\nfive"));
    view.moveCursor(QTextCursor::Start);
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Delete); // joins the first two lines
    EXPECT_EQ(view.text(), QStringLiteral("onetwo\r\nthree\nfour\r\nfive"));
    view.selectAll();
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(view.text(), QString());
}

TEST(TextView, ATextThatChangesUnderTheUserKeepsCaretAndPlace) {
    TextView view;
    view.resize(300, 100);
    view.show();
    QString lines;
    for (int line = 0; line < 200; ++line)
        lines += QStringLiteral("line %1\r\n").arg(line);
    view.setText(lines);
    view.setTextCursor(QTextCursor(view.document()->findBlockByNumber(150)));
    view.moveCursor(QTextCursor::EndOfBlock);
    view.centerCursor();
    const int y = view.cursorRect().y();

    const QString longer = QStringLiteral("first\nsecond\n") + lines + QStringLiteral("last");
    view.updateText(longer);
    EXPECT_EQ(view.text(), longer);
    EXPECT_EQ(view.textCursor().block().text(), QStringLiteral("line 150"));
    EXPECT_TRUE(view.textCursor().atBlockEnd());
    EXPECT_EQ(view.cursorRect().y(), y);
    view.undo();
    EXPECT_EQ(view.text(), longer) << "that was nothing the user did";
}

TEST(TextView, AnyTextTurnsIntoAnyOther) {
    const QString pair = QStringLiteral("a\U0001F600b");
    const QString otherPair = QStringLiteral("a\U0001F601b");
    const QList<QString> texts{QString(), hostile, pair, otherPair, hostile + pair, pair + hostile};
    TextView view;
    for (const QString& from : texts)
        for (const QString& to : texts) {
            view.setText(from);
            view.updateText(to);
            EXPECT_EQ(view.text(), to);
        }
}

// Random edits with undo, against the rule that the text differs from what is on screen only in its breaks.
TEST(TextView, RandomEditsKeepAsManyBreaksAsLines) {
    QRandomGenerator random(3);
    TextView view;
    view.setText(hostile.repeated(5));
    for (int step = 0; step < 3000; ++step) {
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(random.bounded(view.document()->characterCount()));
        if (random.bounded(3) == 0)
            cursor.setPosition(random.bounded(view.document()->characterCount()), QTextCursor::KeepAnchor);
        view.setTextCursor(cursor);
        switch (random.bounded(5)) {
        case 0:
            view.undo();
            break;
        case 1:
            view.redo();
            break;
        case 2:
            cursor.removeSelectedText();
            break;
        default:
            cursor.insertText(QStringLiteral("x\ny\n").left(random.bounded(5)));
        }
        ASSERT_EQ(splitBreaks(view.text()).text, view.displayText()) << "step " << step;
    }
}

TEST(TextView, RunsColourLinesWithoutTouchingTextCaretOrUndo) {
    TextView view;
    view.setText(QStringLiteral("ab\r\ncd\nef"));
    QTest::keyClicks(&view, QStringLiteral("x"));
    const int caret = view.textCursor().position();
    TextAttributes red;
    red.foreground = 0xFFFF0000;
    view.setRuns({{1, 5, red}, {7, 900, red}});
    const auto formatsOf = [&](int line) {
        return view.document()->findBlockByNumber(line).layout()->formats();
    };
    ASSERT_EQ(formatsOf(0).size(), 1);
    EXPECT_EQ(formatsOf(0)[0].start, 1);
    EXPECT_EQ(formatsOf(0)[0].length, 2);
    EXPECT_EQ(formatsOf(1)[0].start, 0);
    EXPECT_EQ(formatsOf(1)[0].length, 1);
    EXPECT_EQ(formatsOf(2)[0].length, 2);
    EXPECT_EQ(view.textCursor().position(), caret);
    EXPECT_EQ(view.text(), QStringLiteral("xab\r\ncd\nef"));
    view.undo();
    EXPECT_EQ(view.text(), QStringLiteral("ab\r\ncd\nef"));
    view.setRuns({});
    EXPECT_TRUE(formatsOf(1).isEmpty());
}

} // namespace
