#include "platform/screens/text/TextView.h"

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDropEvent>
#include <QtGui/QNativeGestureEvent>
#include <QtGui/QPointingDevice>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtGui/QWheelEvent>
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

TEST(TextView, ANewLineBeginsWithTheBlanksOfTheOneBefore) {
    TextView view;
    view.setText(QStringLiteral(" \tif x:\r\n    y"));
    view.moveCursor(QTextCursor::Start);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Return); // within the blanks: those before the caret
    EXPECT_EQ(view.text(), QStringLiteral(" \r\n \tif x:\r\n    y"));
    view.moveCursor(QTextCursor::End);
    view.moveCursor(QTextCursor::Left, QTextCursor::KeepAnchor);
    QTest::keyClick(&view, Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(&view, Qt::Key_Z);
    EXPECT_EQ(view.text(), QStringLiteral(" \r\n \tif x:\r\n    \r\n    z"));
    view.setReadOnly(true);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(view.document()->blockCount(), 4);
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

TextAttributes red() {
    TextAttributes attributes;
    attributes.foreground = 0xFFFF0000;
    return attributes;
}

using Formats = QList<QTextLayout::FormatRange>;

// A line has its formats when it has been in view.
Formats formatsOf(TextView& view, int line) {
    view.grab();
    return view.document()->findBlockByNumber(line).layout()->formats();
}

TEST(TextView, RunsColourLinesWithoutTouchingTextCaretOrUndo) {
    TextView view;
    view.setText(QStringLiteral("ab\r\ncd\nef"));
    QTest::keyClicks(&view, QStringLiteral("x"));
    const int caret = view.textCursor().position();
    view.setRuns({{1, 5, red()}, {7, 900, red()}});
    ASSERT_EQ(formatsOf(view, 0).size(), 1);
    EXPECT_EQ(formatsOf(view, 0)[0].start, 1);
    EXPECT_EQ(formatsOf(view, 0)[0].length, 2);
    EXPECT_EQ(formatsOf(view, 1)[0].start, 0);
    EXPECT_EQ(formatsOf(view, 1)[0].length, 1);
    EXPECT_EQ(formatsOf(view, 2)[0].length, 2);
    EXPECT_EQ(view.textCursor().position(), caret);
    EXPECT_EQ(view.text(), QStringLiteral("xab\r\ncd\nef"));
    view.undo();
    EXPECT_EQ(view.text(), QStringLiteral("ab\r\ncd\nef"));
    view.setRuns({});
    EXPECT_TRUE(formatsOf(view, 1).isEmpty());
}

// What is coloured, as one text with a bar on both sides of every run.
QString marked(TextView& view) {
    view.grab();
    QString all;
    for (int line = 0; line < view.document()->blockCount(); ++line) {
        QString text = view.document()->findBlockByNumber(line).text();
        const Formats formats = view.document()->findBlockByNumber(line).layout()->formats();
        for (qsizetype i = formats.size(); i-- > 0;) {
            text.insert(formats[i].start + formats[i].length, u'|');
            text.insert(formats[i].start, u'|');
        }
        all += (line > 0 ? QStringLiteral("\n") : QString()) + text;
    }
    return all;
}

TEST(TextView, ColoursMoveWithTheTextUntilNewOnesCome) {
    TextView view;
    const auto start = [&view] {
        view.setText(QStringLiteral("int a; // one two\nreturn \"text\";\n"));
        view.setRuns({{0, 3, red()}, {7, 17, red()}, {18, 24, red()}, {25, 31, red()}});
    };
    const auto typed = [&](int at, const char* keys) {
        start();
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(at);
        view.setTextCursor(cursor);
        QTest::keyClicks(&view, QString::fromLatin1(keys));
        return marked(view);
    };
    EXPECT_EQ(typed(4, "bc"), QStringLiteral("|int| bca; |// one two|\n|return| |\"text\"|;\n"));
    EXPECT_EQ(typed(28, "xy"), QStringLiteral("|int| a; |// one two|\n|return| |\"texyxt\"|;\n")) << "inside";
    EXPECT_EQ(typed(17, "!"), QStringLiteral("|int| a; |// one two!|\n|return| |\"text\"|;\n"))
        << "a comment";
    EXPECT_EQ(typed(3, "8"), QStringLiteral("|int|8 a; |// one two|\n|return| |\"text\"|;\n")) << "behind";
    EXPECT_EQ(typed(0, "8"), QStringLiteral("8|int| a; |// one two|\n|return| |\"text\"|;\n")) << "before";
    EXPECT_EQ(typed(10, "\r"), QStringLiteral("|int| a; |// |\n|one two|\n|return| |\"text\"|;\n"));
    EXPECT_EQ(typed(18, "\b"), QStringLiteral("|int| a; |// one two||return| |\"text\"|;\n"));

    start();
    QTextCursor indent(view.document());
    indent.beginEditBlock();
    for (int line = 0; line < 2; ++line) {
        indent.setPosition(view.document()->findBlockByNumber(line).position());
        indent.insertText(QStringLiteral("  "));
    }
    indent.endEditBlock();
    EXPECT_EQ(marked(view), QStringLiteral("  |int| a; |// one two|\n  |return| |\"text\"|;\n"));
}

// Random edits, undo and typing between colours: whatever came before, new colours look as on a fresh text.
TEST(TextView, ColoursNeverDependOnWhatCameBefore) {
    constexpr quint32 seed = 11;
    QRandomGenerator random(seed);
    TextView view;
    view.resize(200, 3000);
    view.setText(QStringLiteral("one two\nthree\n\nfour").repeated(4));
    for (int step = 0; step < 600; ++step) {
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(random.bounded(view.document()->characterCount()));
        if (random.bounded(3) == 0)
            cursor.setPosition(random.bounded(view.document()->characterCount()), QTextCursor::KeepAnchor);
        switch (random.bounded(6)) {
        case 0:
            view.undo();
            break;
        case 1:
            view.redo();
            break;
        case 2:
            view.replaceText(view.text() + QStringLiteral("x\r\ny"));
            break;
        default:
            cursor.insertText(QStringLiteral("x y\n\nzz\n").left(random.bounded(9)));
        }
        view.grab();
        for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next())
            for (const auto& range : block.layout()->formats())
                ASSERT_LT(range.start + range.length, block.length()) << "seed " << seed << " step " << step;
        if (step % 10 > 0) continue;
        std::vector<AttributeRun> runs;
        for (qsizetype at = random.bounded(5); at < view.displayText().size(); at += 2 + random.bounded(7))
            runs.push_back({at, at + 2, red()});
        view.setRuns(runs);
        TextView fresh;
        fresh.resize(view.size());
        fresh.setText(view.displayText());
        fresh.setRuns(runs);
        ASSERT_EQ(marked(view), marked(fresh)) << "seed " << seed << " step " << step;
        if (view.document()->blockCount() > 60) view.setText(QStringLiteral("a b\nc"));
    }
}

TEST(TextView, AReplacedTextIsOneStepAndUndoneHasItsOldBreaks) {
    TextView view;
    view.setText(QStringLiteral("one\r\ntwo\rthree\n"));
    QTest::keyClicks(&view, QStringLiteral("x"));
    const QString before = view.text();
    const QString after = QStringLiteral("a\rb\nc\r\nd");
    view.replaceText(after);
    EXPECT_EQ(view.text(), after);
    QTest::keyClicks(&view, QStringLiteral("yz"));
    view.undo();
    EXPECT_EQ(view.text(), after);
    view.undo();
    EXPECT_EQ(view.text(), before);
    view.redo();
    EXPECT_EQ(view.text(), after);
    view.undo();
    QTest::keyClicks(&view, QStringLiteral("something else"));
    EXPECT_FALSE(view.document()->isRedoAvailable());
    EXPECT_EQ(view.text().count(u'\r'), before.count(u'\r'));
    view.undo();
    view.undo();
    EXPECT_EQ(view.text(), QStringLiteral("one\r\ntwo\rthree\n"));
}

// A view with a file to drop on it.
class TextViewDrop : public ::testing::Test {
protected:
    QTemporaryDir directory;
    TextView view;
    QStringList refused;

    TextViewDrop() {
        view.setText(QStringLiteral("before"));
        view.resize(300, 200);
        view.show();
        QObject::connect(&view, &TextView::dropRefused, [this](const QString& reason) { refused += reason; });
    }

    QUrl fileOf(const QByteArray& bytes) const {
        QFile file(directory.filePath(QStringLiteral("file")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return QUrl::fromLocalFile(file.fileName());
    }

    // Whether it was accepted.
    bool drop(const QList<QUrl>& urls, const QString& text = {}) {
        QMimeData data;
        if (!urls.isEmpty()) data.setUrls(urls);
        if (!text.isEmpty()) data.setText(text);
        const auto actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter({10, 10}, actions, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &enter);
        QDragMoveEvent move({10, 10}, actions, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &move);
        QDropEvent event({10, 10}, actions, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted();
    }
};

TEST_F(TextViewDrop, ATextFileFillsTheViewAndCanBeUndone) {
    EXPECT_TRUE(drop({fileOf("one\r\ntwo\n")}));
    EXPECT_EQ(view.text(), QStringLiteral("one\r\ntwo\n"));
    EXPECT_EQ(view.textCursor().position(), 0);
    EXPECT_TRUE(view.document()->isModified());
    view.undo();
    EXPECT_EQ(view.text(), QStringLiteral("before"));
    EXPECT_TRUE(refused.isEmpty());
}

TEST_F(TextViewDrop, WhatCannotComeInIsToldAndChangesNothing) {
    const QUrl good = fileOf("text");
    drop({good, good});
    drop({QUrl::fromLocalFile(directory.path())});
    drop({QUrl::fromLocalFile(QStringLiteral("/nonexistent"))});
    drop({fileOf(QByteArray("\0", 1))});
    EXPECT_EQ(refused.size(), 4);
    EXPECT_EQ(view.text(), QStringLiteral("before"));
    view.setReadOnly(true);
    EXPECT_FALSE(drop({fileOf("text")}));
    EXPECT_EQ(view.text(), QStringLiteral("before"));
    EXPECT_EQ(refused.size(), 4);
}

TEST_F(TextViewDrop, PlainTextIsInsertedWhereItFalls) {
    EXPECT_TRUE(drop({}, QStringLiteral("dropped")));
    EXPECT_EQ(view.text().count(QStringLiteral("dropped")), 1);
    EXPECT_EQ(view.text().remove(QStringLiteral("dropped")), QStringLiteral("before"));
}

class TextViewZoom : public ::testing::Test {
protected:
    TextView view;
    QFont font;

    TextViewZoom() {
        font.setPointSizeF(10);
        view.setCodeFont(font);
        view.resize(400, 600);
        view.show();
        view.setText(QStringLiteral("some line\n").repeated(500));
        view.setTextCursor(QTextCursor(view.document()->findBlockByNumber(250)));
        view.centerCursor();
    }

    void turn(int eighths) {
        const QPointF at(50, 300);
        QWheelEvent wheel(at, view.viewport()->mapToGlobal(at), {}, {0, eighths}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &wheel);
    }

    qreal size() const { return view.font().pointSizeF(); }
};

TEST_F(TextViewZoom, KeepsTheLineInViewWhereItIs) {
    const int y = view.cursorRect().center().y();
    for (const auto key : {Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus}) {
        QTest::keyClick(&view, key, Qt::ControlModifier);
        EXPECT_NE(size(), 10);
        EXPECT_NEAR(view.cursorRect().center().y(), y, view.cursorRect().height());
        EXPECT_EQ(view.textCursor().blockNumber(), 250);
    }
    QTest::keyClick(&view, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(size(), 10);
    EXPECT_NEAR(view.cursorRect().center().y(), y, view.cursorRect().height());
    EXPECT_FALSE(view.document()->isModified());
    const int line = view.cursorForPosition({50, 300}).blockNumber();
    turn(4 * 120);
    EXPECT_NEAR(view.cursorForPosition({50, 300}).blockNumber(), line, 1);
}

TEST_F(TextViewZoom, SmallTurnsAddUpAndItStaysInItsBounds) {
    for (int i = 0; i < 120; ++i)
        turn(2);
    EXPECT_EQ(size(), 12);
    for (int i = 0; i < 100; ++i)
        turn(120);
    EXPECT_EQ(size(), 40);
    for (int i = 0; i < 100; ++i)
        turn(-120);
    EXPECT_EQ(size(), 5);
    font.setPointSizeF(20);
    view.setCodeFont(font);
    EXPECT_EQ(size(), 10) << "of the new 100 %";
}

TEST_F(TextViewZoom, APinchZooms) {
    const QPointF at(50, 300);
    QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, at, at,
                              view.viewport()->mapToGlobal(at), 0.5, {});
    QCoreApplication::sendEvent(view.viewport(), &pinch);
    EXPECT_EQ(size(), 15);
}

TEST(TextView, SelectedTextKeepsItsColoursAndTheCaretIsOrange) {
    TextView view;
    QFont font(QStringLiteral("monospace"));
    font.setPointSizeF(40);
    font.setStyleStrategy(QFont::NoAntialias);
    view.setCodeFont(font);
    view.resize(300, 120);
    view.setFrameShape(QFrame::NoFrame);
    view.setText(QStringLiteral("MM"));
    view.setRuns({{0, 2, red()}});
    view.show();
    view.setFocus();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    const auto has = [&view](QColor wanted) {
        const QImage image = view.viewport()->grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == wanted) return true;
        return false;
    };
    view.moveCursor(QTextCursor::End);
    EXPECT_TRUE(QTest::qWaitFor([&] { return has(color(Asset::SystemOrange)); }));
    EXPECT_TRUE(has(Qt::red));
    view.selectAll();
    EXPECT_TRUE(has(Qt::red));
    EXPECT_FALSE(has(view.palette().color(QPalette::HighlightedText)) &&
                 has(view.palette().color(QPalette::Highlight)));
}

} // namespace
