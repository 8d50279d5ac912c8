#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QShortcut>

#include <vector>

using namespace tessarine;

namespace {

struct TextKeysTest : ShownTextView {
    // The text once a key has been pressed where the caret was.
    std::u16string after(int key, Qt::KeyboardModifiers modifiers, std::u16string_view text,
                         std::int64_t anchor, std::int64_t head) {
        show(text);
        view.movement().select(anchor, head);
        press(key, modifiers);
        return view.text();
    }
};

TEST_F(TextKeysTest, Types) {
    type("if (a) b;");
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString::fromUtf8("é😀"), Qt::NoModifier);
    EXPECT_EQ(view.text(), u"if (a) b;\n\té😀");
    view.setIndentStrategy(IndentStrategy::space(3));
    press(Qt::Key_Tab);
    EXPECT_TRUE(view.text().ends_with(u"😀   "));
}

TEST_F(TextKeysTest, MovesAndSelects) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::int64_t expected;
    };

    show(u"one two\n  three four\nlast");
    for (const Case& step :
         {Case{Qt::Key_Right, {}, 13}, Case{Qt::Key_Left, {}, 11},
          Case{Qt::Key_Right, Qt::ControlModifier, 15}, Case{Qt::Key_Left, Qt::ControlModifier, 10},
          Case{Qt::Key_Home, {}, 10}, Case{Qt::Key_End, {}, 20}, Case{Qt::Key_Home, Qt::ControlModifier, 0},
          Case{Qt::Key_End, Qt::ControlModifier, 25}, Case{Qt::Key_Up, {}, 4}, Case{Qt::Key_Down, {}, 25},
          Case{Qt::Key_PageUp, {}, 0}, Case{Qt::Key_PageDown, {}, 25}}) {
        view.movement().select(12, 12);
        press(step.key, step.modifiers);
        EXPECT_EQ(ends(), Ends(step.expected, step.expected)) << step.key;
        view.movement().select(12, 12);
        press(step.key, step.modifiers | Qt::ShiftModifier);
        EXPECT_EQ(ends(), Ends(12, step.expected)) << step.key;
    }
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(ends(), Ends(0, 25));
    press(Qt::Key_Escape);
    EXPECT_EQ(ends(), Ends(25, 25));
}

TEST_F(TextKeysTest, HomeTogglesWithTheStartOfTheLine) {
    show(u"  ab", 3);
    press(Qt::Key_Home);
    EXPECT_EQ(view.movement().head(), 2);
    press(Qt::Key_Home);
    EXPECT_EQ(view.movement().head(), 0);
    press(Qt::Key_Home);
    EXPECT_EQ(view.movement().head(), 2);
}

TEST_F(TextKeysTest, Deletes) {
    EXPECT_EQ(after(Qt::Key_Backspace, {}, u"one two", 5, 5), u"one wo");
    EXPECT_EQ(after(Qt::Key_Backspace, Qt::ShiftModifier, u"one two", 5, 5), u"one wo");
    EXPECT_EQ(after(Qt::Key_Delete, {}, u"one two", 5, 5), u"one to");
    EXPECT_EQ(after(Qt::Key_Backspace, Qt::ControlModifier, u"one two", 6, 6), u"one o");
    EXPECT_EQ(after(Qt::Key_Delete, Qt::ControlModifier, u"one two", 1, 1), u"o two");
    EXPECT_EQ(after(Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier, u"one\ntwo", 1, 1), u"o\ntwo");
    EXPECT_EQ(after(Qt::Key_Backspace, Qt::ControlModifier | Qt::ShiftModifier, u"a\ntwo", 4, 4), u"a\no");
    EXPECT_EQ(after(Qt::Key_Delete, {}, u"one two", 6, 2), u"ono");
}

TEST_F(TextKeysTest, WorksOnLines) {
    EXPECT_EQ(after(Qt::Key_Tab, {}, u"a\nb\nc", 0, 3), u"\ta\n\tb\nc");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(view.text(), u"a\nb\nc");
    EXPECT_EQ(after(Qt::Key_Up, Qt::AltModifier, u"a\nb\nc", 2, 2), u"b\na\nc");
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(view.text(), u"a\nc\nb");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view.text(), u"a\nb\nc");
    QTest::keySequence(&widget, QKeySequence(QKeySequence::Redo));
    EXPECT_EQ(view.text(), u"a\nc\nb");
}

TEST_F(TextKeysTest, CutsCopiesAndPastes) {
    show(u"one two");
    view.movement().select(3, 0);
    press(Qt::Key_C, Qt::ControlModifier);
    view.replace({.location = 0, .length = 3}, u"changed");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one"));
    view.movement().select(7, 11);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(view.text(), u"changed");
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(view.text(), u"changed two");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral(" two"));
}

TEST_F(TextKeysTest, PastesWithTheDocumentsLineEndingsAsOneStep) {
    QGuiApplication::clipboard()->setText(QStringLiteral("a\r\nb\rc\n"));
    type("x");
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(view.text(), u"xa\nb\nc\n");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view.text(), u"x");
    view.setLineEndings(LineEnding::crlf);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(view.text(), u"xa\r\nb\r\nc\r\n");
}

TEST_F(TextKeysTest, ReadingOnlyMovesAndCopies) {
    show(u"one two");
    view.setEditable(false);
    type("x");
    for (const int key : {Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Tab})
        press(key);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(view.text(), u"one two");
    widget.setFocus();
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one"));
    view.setEditable(true);
    type("x");
    EXPECT_EQ(view.text(), u"x two");
    EXPECT_TRUE(view.isEditing());
}

struct NotingParent : QWidget {
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() < Qt::Key_Shift || event->key() > Qt::Key_Alt) keys.push_back(event->key());
    }

    std::vector<int> keys;
};

TEST(TextKeysInAWindow, TakesItsOwnKeysAndLeavesTheOthers) {
    NotingParent window;
    QtTextView widget(&window);
    int shortcuts = 0;
    for (const auto& keys : {QKeySequence(Qt::CTRL | Qt::Key_Z), QKeySequence(Qt::Key_A),
                             QKeySequence(Qt::ALT | Qt::Key_Up), QKeySequence(Qt::CTRL | Qt::Key_S)})
        QObject::connect(new QShortcut(keys, &window), &QShortcut::activated, &window, [&] { ++shortcuts; });
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_A);
    QTest::keyClick(&widget, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(widget.textView().text(), u"a");
    QTest::keyClick(&widget, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(widget.textView().text(), u"");
    EXPECT_EQ(shortcuts, 0);
    QTest::keyClick(&widget, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(shortcuts, 1);
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Escape})
        QTest::keyClick(&widget, key);
    EXPECT_EQ(window.keys, (std::vector<int>{Qt::Key_F5, Qt::Key_Escape}));
}

} // namespace
