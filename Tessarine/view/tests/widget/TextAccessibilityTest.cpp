#include "Tessarine/view/TextViewUpdates.h"
#include "Tessarine/view/accessibility/AccessibleTextEvents.h"
#include "Tessarine/view/tests/widget/ShownTextView.h"

#include <QtGui/QAccessible>
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::string described(QAccessibleEvent& event) {
    if (event.type() == QAccessible::TextInserted) {
        const auto& change = static_cast<QAccessibleTextInsertEvent&>(event);
        return QStringLiteral("+%1 %2").arg(change.changePosition()).arg(change.textInserted()).toStdString();
    }
    if (event.type() == QAccessible::TextRemoved) {
        const auto& change = static_cast<QAccessibleTextRemoveEvent&>(event);
        return QStringLiteral("-%1 %2").arg(change.changePosition()).arg(change.textRemoved()).toStdString();
    }
    if (event.type() == QAccessible::TextUpdated) {
        const auto& change = static_cast<QAccessibleTextUpdateEvent&>(event);
        return QStringLiteral("=%1 %2 %3")
            .arg(change.changePosition())
            .arg(change.textRemoved(), change.textInserted())
            .toStdString();
    }
    if (event.type() == QAccessible::TextCaretMoved)
        return "caret " + std::to_string(static_cast<QAccessibleTextCursorEvent&>(event).cursorPosition());
    if (event.type() == QAccessible::TextSelectionChanged) {
        const auto& change = static_cast<QAccessibleTextSelectionEvent&>(event);
        return "selection " + std::to_string(change.selectionStart()) + " " +
               std::to_string(change.selectionEnd());
    }
    return event.type() == QAccessible::VisibleDataChanged ? "all" : "";
}

struct TextAccessibilityTest : ShownTextView {
    std::string piece(int offset, QAccessible::TextBoundaryType boundary) {
        int start = 0;
        int end = 0;
        const QString text = tool->textAtOffset(offset, boundary, &start, &end);
        EXPECT_EQ(text, tool->text(start, end));
        return text.toStdString();
    }

    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&widget);
    QAccessibleTextInterface* const tool = accessible->textInterface();
};

TEST_F(TextAccessibilityTest, IsATextThatCanBeEdited) {
    show(u"one two", 3);
    EXPECT_EQ(accessible->role(), QAccessible::EditableText);
    EXPECT_TRUE(accessible->state().multiLine);
    EXPECT_TRUE(accessible->state().editable);
    EXPECT_EQ(tool->characterCount(), 7);
    EXPECT_EQ(tool->cursorPosition(), 3);
    EXPECT_EQ(tool->text(4, 7), QStringLiteral("two"));
    EXPECT_EQ(tool->text(-5, 1000), QStringLiteral("one two"));
    QAccessibleEditableTextInterface& editor = *accessible->editableTextInterface();
    editor.insertText(3, QStringLiteral("!"));
    editor.replaceText(0, 1, QStringLiteral("O"));
    editor.deleteText(4, 8);
    EXPECT_EQ(view.text(), u"One!");
    view.setEditable(false);
    EXPECT_TRUE(accessible->state().readOnly);
}

TEST_F(TextAccessibilityTest, SelectsAndMoves) {
    show(u"one two");
    EXPECT_EQ(tool->selectionCount(), 0);
    tool->addSelection(1, 3);
    int start = 0;
    int end = 0;
    tool->selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(1, 3));
    tool->setSelection(0, 7, 4);
    EXPECT_EQ(ends(), Ends(7, 4));
    tool->removeSelection(0);
    EXPECT_EQ(ends(), Ends(4, 4));
    tool->setCursorPosition(5000);
    EXPECT_EQ(tool->cursorPosition(), 7);
}

TEST_F(TextAccessibilityTest, ReadsByPieces) {
    show(u"one 😀 two\nthree\n");
    EXPECT_EQ(piece(4, QAccessible::CharBoundary), "😀");
    EXPECT_EQ(piece(1, QAccessible::WordBoundary), "one");
    EXPECT_EQ(piece(1, QAccessible::ParagraphBoundary), "one 😀 two\n");
    EXPECT_EQ(piece(12, QAccessible::LineBoundary), "three\n");
    EXPECT_EQ(piece(-1, QAccessible::LineBoundary), "");
    EXPECT_EQ(piece(0, QAccessible::NoBoundary), "one 😀 two\nthree\n");
    int start = 0;
    int end = 0;
    EXPECT_EQ(tool->textAfterOffset(2, QAccessible::LineBoundary, &start, &end), QStringLiteral("three\n"));
    EXPECT_EQ(tool->textBeforeOffset(13, QAccessible::LineBoundary, &start, &end),
              QStringLiteral("one 😀 two\n"));
    EXPECT_EQ(tool->textBeforeOffset(2, QAccessible::LineBoundary, &start, &end), QString());
    EXPECT_EQ(tool->textAfterOffset(17, QAccessible::WordBoundary, &start, &end), QString());
}

TEST_F(TextAccessibilityTest, ReadsTheRowsOfAWrappedLine) {
    std::u16string text;
    for (int i = 0; i < 40; ++i)
        text += u"word ";
    show(text + u"\nend");
    std::string read;
    int rows = 0;
    for (int offset = 0; offset <= 200; ++rows) {
        const std::string row = piece(offset, QAccessible::LineBoundary);
        ASSERT_FALSE(row.empty());
        read += row;
        offset += static_cast<int>(row.size());
    }
    EXPECT_EQ(read, toQt(text).toStdString() + "\n");
    EXPECT_GE(rows, 3);
}

TEST_F(TextAccessibilityTest, KnowsWhereCharactersStand) {
    showRows(200);
    const QRect rect = tool->characterRect(8);
    EXPECT_TRUE(rect.contains(widget.viewport()->mapToGlobal(placeOf(8)) + QPoint(3, 0)));
    EXPECT_EQ(tool->offsetAtPoint(rect.center() - QPoint(1, 0)), 8);
    EXPECT_EQ(tool->offsetAtPoint({-4000, 7}), -1);
    tool->scrollToSubstring(1000, 1004);
    settle();
    EXPECT_GT(view.scrollView()->contentOffset().y, 500);
}

// Stands in for the widget as the host.
struct AccessibleTextEventsTest : ShownTextView, TextViewUpdates::Receiver {
    AccessibleTextEventsTest() {
        show(u"one two");
        view.setHost(updates);
    }

    void layoutTextView() override {}

    void editingHasChanged() override {}

    void textViewHasChanged(const TextViewUpdates::Changes& /*changes*/) override {
        accessible.selectionHasChanged();
    }

    void textWasReplaced(const TextRange& range, std::u16string_view oldText,
                         std::u16string_view newText) override {
        accessible.textWasReplaced(range, oldText, newText);
    }

    void allTextWasReplaced() override { accessible.allTextWasReplaced(); }

    std::vector<std::string> eventsOf(auto change) {
        events.clear();
        change();
        settle();
        return events;
    }

    const std::shared_ptr<TextViewUpdates> updates = std::make_shared<TextViewUpdates>(*this);
    bool areTools = true;
    std::vector<std::string> events;
    AccessibleTextEvents accessible{
        view,
        widget,
        {.areThere = [this] { return areTools; },
         .tell = [this](QAccessibleEvent* event) { events.push_back(described(*event)); }}};
};

TEST_F(AccessibleTextEventsTest, TellsOfEditsByTheirOwnText) {
    EXPECT_THAT(eventsOf([&] { type("x"); }), ElementsAre("+0 x", "caret 1"));
    EXPECT_THAT(eventsOf([&] { press(Qt::Key_Backspace); }), ElementsAre("-0 x", "caret 0"));
    EXPECT_THAT(eventsOf([&] { view.replace({.location = 0, .length = 3}, u"1"); }),
                ElementsAre("=0 one 1", "caret 1"));
    EXPECT_THAT(eventsOf([&] { view.undo(); }), ElementsAre("=0 1 one", "+0 x", "-0 x", "caret 0"))
        << "which were one step";
    EXPECT_THAT(eventsOf([&] { view.setText(u"another"); }), ElementsAre("all"));
    areTools = false;
    EXPECT_THAT(eventsOf([&] { type("x"); }), IsEmpty());
}

TEST_F(AccessibleTextEventsTest, TellsOfCaretAndSelection) {
    EXPECT_THAT(eventsOf([&] { press(Qt::Key_Right); }), ElementsAre("caret 1"));
    EXPECT_THAT(eventsOf([&] { press(Qt::Key_Right, Qt::ShiftModifier); }),
                ElementsAre("selection 1 2", "caret 2"));
    EXPECT_THAT(eventsOf([&] { press(Qt::Key_Left); }), ElementsAre("selection 1 1", "caret 1"));
    EXPECT_THAT(eventsOf([&] { view.movement().select(1, 1); }), IsEmpty());
}

} // namespace
