#include "platform/screens/text/FindBar.h"

#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/tests/ScreensTest.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <random>

using namespace platform;

namespace {

class FindBarTest : public ScreensTest {
protected:
    FindBarTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(bar);
        column->addWidget(view);
        window.resize(500, 300);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void look(const QString& query) {
        bar->open();
        QTest::keyClicks(&bar->field(), query);
    }

    int at() const { return view->textCursor().selectionStart(); }

    void next(Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&bar->field(), Qt::Key_Return, modifiers);
    }

    QWidget window;
    TextView* view = new TextView;
    FindBar* bar = new FindBar(*view);
};

TEST_F(FindBarTest, GoesFromTheCaretAroundTheEndsAndLeavesTheMatchSelected) {
    view->setText(QStringLiteral("One two ONE\r\ntwo one"));
    QTextCursor caret = view->textCursor();
    caret.setPosition(5);
    view->setTextCursor(caret);
    look(QStringLiteral("one"));
    EXPECT_EQ(at(), 8);
    EXPECT_EQ(bar->countText(), QStringLiteral("2 of 3"));
    next();
    EXPECT_EQ(at(), 16);
    next();
    EXPECT_EQ(at(), 0) << "around the end";
    next(Qt::ShiftModifier);
    EXPECT_EQ(at(), 16) << "and back around the start";
    for (auto* button : bar->findChildren<QAbstractButton*>())
        if (button->accessibleName() == QStringLiteral("Match Case"))
            QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(bar->countText(), QStringLiteral("1 of 1"));
    QTest::keyClick(&bar->field(), Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(view->hasFocus());
    EXPECT_EQ(view->textCursor().selectedText(), QStringLiteral("one"));
    EXPECT_EQ(view->text(), QStringLiteral("One two ONE\r\ntwo one"));
    EXPECT_FALSE(view->document()->isUndoAvailable());
}

TEST_F(FindBarTest, TakesTheSelectionAndFollowsTheText) {
    view->setText(QStringLiteral("ab ab ab"));
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    bar->open();
    EXPECT_EQ(bar->field().text(), QStringLiteral("ab"));
    EXPECT_EQ(bar->countText(), QStringLiteral("1 of 3"));
    EXPECT_EQ(view->extraSelections().size(), 3);
    view->setText(QStringLiteral("ab"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->countText() == QStringLiteral("1 result"); }));
    view->setText(QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->countText() == QStringLiteral("No results"); }));
    next();
    EXPECT_EQ(view->text(), QString());
}

TEST_F(FindBarTest, MarksOnlyWhatIsInViewAndCountsSoMany) {
    view->setText(QStringLiteral("a line of text\n").repeated(60'000));
    look(QStringLiteral("line"));
    EXPECT_EQ(bar->countText(), QStringLiteral("1 of 10,000+"));
    const auto marked = view->extraSelections().size();
    EXPECT_LT(marked, 100);
    window.resize(500, 600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->extraSelections().size() > marked; }));
    view->verticalScrollBar()->setValue(30'000);
    ASSERT_FALSE(view->extraSelections().isEmpty())
        << view->verticalScrollBar()->value() << " of " << view->verticalScrollBar()->maximum();
    EXPECT_GE(view->extraSelections().constFirst().cursor.blockNumber(), 30'000);
    QTest::keyClick(&bar->field(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(at(), 59'999 * 15 + 2) << "beyond those that are counted";
}

TEST_F(FindBarTest, FollowsWhatIsTypedOnlyWhenItRests) {
    view->setText(QStringLiteral("ab ab ab"));
    look(QStringLiteral("ab"));
    view->setFocus();
    view->moveCursor(QTextCursor::Start);
    QTest::keyClicks(view, QStringLiteral("ab "));
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(bar->countText(), QStringLiteral("1 of 3")) << "moved along, and not searched anew yet";
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar->countText() == QStringLiteral("2 of 4"); }));
    QTest::keyClick(view, Qt::Key_F3);
    EXPECT_EQ(at(), 6);
    QTest::keyClick(view, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(at(), 3);
}

TEST_F(FindBarTest, SaysThatItWentAround) {
    view->setText(QStringLiteral("aaa aa"));
    look(QStringLiteral("aa"));
    auto* count = bar->findChild<QLabel*>();
    EXPECT_EQ(count->accessibleName(), QStringLiteral("1 of 2"));
    next(Qt::ShiftModifier);
    EXPECT_EQ(count->accessibleName(), QStringLiteral("2 of 2, continued from the end"));
    next();
    EXPECT_EQ(count->accessibleName(), QStringLiteral("1 of 2, continued from the start"));
    next();
    EXPECT_EQ(count->accessibleName(), QStringLiteral("2 of 2"));
    view->moveCursor(QTextCursor::Start);
    EXPECT_EQ(count->accessibleName(), QStringLiteral("2 results"));
}

TEST_F(FindBarTest, ItsKeysAreItsOwnOnlyWhereItIs) {
    auto* elsewhere = new QLineEdit(&window);
    window.layout()->addWidget(elsewhere);
    view->setText(QStringLiteral("ab ab ab"));
    look(QStringLiteral("ab"));
    elsewhere->setFocus();
    QTest::keyClick(elsewhere, Qt::Key_F3);
    QTest::keyClick(elsewhere, Qt::Key_Escape);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(at(), 0);
    for (auto* button : bar->findChildren<QAbstractButton*>())
        if (button->accessibleName() == QStringLiteral("Next Match")) {
            button->setFocus();
            QTest::keyClick(button, Qt::Key_Return);
            EXPECT_EQ(at(), 3);
            QTest::keyClick(button, Qt::Key_F3);
            EXPECT_EQ(at(), 6);
            QTest::keyClick(button, Qt::Key_Escape);
        }
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(FindBarTest, OpensWithoutMovingTheCaretAndTakesOneLineOnly) {
    view->setText(QStringLiteral("ab\nab ab"));
    look(QStringLiteral("ab"));
    bar->close();
    view->selectAll();
    bar->open();
    EXPECT_EQ(bar->field().text(), QStringLiteral("ab"));
    EXPECT_EQ(view->textCursor().selectedText().size(), 8);
    EXPECT_EQ(bar->countText(), QStringLiteral("3 results"));
}

TEST_F(FindBarTest, TakesASecondRowOnlyWhereItMust) {
    view->setText(QStringLiteral("ab ab ab"));
    window.resize(500, 300);
    look(QStringLiteral("ab"));
    turn();
    const auto hasTwoRows = [this] {
        const auto* button = bar->findChild<SymbolButton*>();
        return button->mapTo(bar, QPoint()).y() > bar->field().geometry().bottom();
    };
    EXPECT_FALSE(hasTwoRows());
    window.resize(240, 300);
    EXPECT_TRUE(QTest::qWaitFor(hasTwoRows));
    next();
    turn();
    EXPECT_TRUE(hasTwoRows());
    window.resize(500, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !hasTwoRows(); }));
}

TEST_F(FindBarTest, MarksOfOneLongLineOnlyWhatIsBetweenTheSides) {
    view->setText(QStringLiteral("ab ").repeated(20'000));
    look(QStringLiteral("ab"));
    EXPECT_LT(view->extraSelections().size(), 100);
    view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->maximum() / 2);
    ASSERT_FALSE(view->extraSelections().isEmpty());
    EXPECT_GT(view->extraSelections().constFirst().cursor.position(), 10'000);
}

// What an edit leaves is where a fresh search finds it, but for those that the edit made.
TEST(TextMatchesTest, StayWhereTheTextIsThroughEdits) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto below = [&](qsizetype limit) { return static_cast<int>(random() % (limit + 1)); };
    QString text = QStringLiteral("abcABC").repeated(30);
    const TextMatches::Query query{QStringLiteral("bca"), Qt::CaseInsensitive};
    TextMatches matches(text, query);
    for (int step = 0; step < 500; ++step) {
        const int position = below(text.size());
        const int removed = below(std::min<qsizetype>(5, text.size() - position));
        const QString added = QStringLiteral("ABCabc").left(below(6));
        text.replace(position, removed, added);
        matches.edit(position, removed, static_cast<int>(added.size()));
        for (const int start : matches.touching(0, static_cast<int>(text.size())))
            ASSERT_EQ(text.mid(start, 3).toLower(), query.text);
        if (step % 10 == 9) matches = TextMatches(text, query);
    }
}

} // namespace
