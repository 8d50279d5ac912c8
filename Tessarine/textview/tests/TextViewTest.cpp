#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/textview/QuickTapGestureRecognizer.h"
#include "Tessarine/textview/tests/ShownText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using testing::ElementsAre;

namespace {

class Brackets final : public CharacterPair {
public:
    std::u16string leading() const override { return u"("; }

    std::u16string trailing() const override { return u")"; }
};

// Writes down what it is asked and told, with what the view is like then.
class RecordingDelegate final : public TextViewDelegate {
public:
    bool textViewShouldBeginEditing(TextView& view) override {
        if (makesEditable) view.setEditable(true);
        return answer("should begin");
    }

    bool textViewShouldEndEditing(TextView&) override { return answer("should end"); }

    void textViewDidBeginEditing(TextView& view) override { note(view.isEditing() ? "began" : "?"); }

    void textViewDidEndEditing(TextView& view) override { note(view.isEditing() ? "?" : "ended"); }

    void textViewDidChange(TextView&) override { note("changed"); }

    void textViewDidChangeSelection(TextView&) override { note("selection"); }

    bool textViewShouldChangeText(TextView&, const TextRange&, std::u16string_view) override {
        return answer("should change");
    }

    bool textViewShouldInsertCharacterPair(TextView&, const CharacterPair&, const TextRange&) override {
        return answer("should pair");
    }

    bool textViewShouldSkipTrailingComponentOfCharacterPair(TextView&, const CharacterPair&,
                                                            const TextRange&) override {
        return answer("should skip");
    }

    void textViewDidChangeGutterWidth(TextView&) override { note("gutter"); }

    void textViewDidBeginFloatingCursor(TextView&) override { note("floating"); }

    void textViewDidEndFloatingCursor(TextView&) override { note("floated"); }

    void textViewDidLoopToLastHighlightedRange(TextView&) override { note("to last"); }

    void textViewDidLoopToFirstHighlightedRange(TextView&) override { note("to first"); }

    bool textViewCanReplaceTextInHighlightedRange(TextView&, const HighlightedRange& range) override {
        return range.range == TextRange{4, 2} && answer("can replace");
    }

    void textViewReplaceTextInHighlightedRange(TextView& view, const HighlightedRange& range) override {
        note("replace");
        view.replace(range.range, u"new");
    }

    std::vector<std::string> taken() { return std::exchange(m_notes, {}); }

    bool allows = true;
    bool makesEditable = false;

private:
    void note(std::string what) { m_notes.push_back(std::move(what)); }

    bool answer(std::string question) {
        note(std::move(question));
        return allows;
    }

    std::vector<std::string> m_notes;
};

class DelegatedText : public testing::Test {
protected:
    void open(std::u16string marked) {
        text.view->setText(u"");
        const auto at = static_cast<std::int64_t>(marked.find(u'|'));
        text.view->setText(marked.erase(static_cast<std::size_t>(at), 1));
        text.view->setSelectedRange(TextRange{at, 0});
        text.view->setEditorDelegate(delegate);
    }

    std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();
    ShownText text;
    TextView& view = *text.view;
};

TEST(TextViewTest, ANewViewIsEmptyEditableAndPlain) {
    ShownText text;
    const auto view =
        TextView::create({std::make_shared<FixedAdvanceShaper>(), text.measurer, text.clock, text.executor});
    EXPECT_EQ(view->text(), u"");
    EXPECT_EQ(view->selectedRange(), std::nullopt);
    EXPECT_TRUE(view->isEditable());
    EXPECT_TRUE(view->isSelectable());
    EXPECT_TRUE(view->isAutomaticScrollEnabled());
    EXPECT_TRUE(view->isLineWrappingEnabled());
    EXPECT_FALSE(view->isEditing());
    EXPECT_FALSE(view->showLineNumbers());
    EXPECT_FALSE(view->showPageGuide());
    EXPECT_FALSE(view->canUndo());
    EXPECT_EQ(view->lineEndings(), LineEnding::lf);
    EXPECT_EQ(view->indentStrategy(), IndentStrategy::tab(2));
    EXPECT_EQ(view->lineSelectionDisplayType(), LineSelectionDisplayType::disabled);
    EXPECT_EQ(view->document().lineManager->lineCount(), 1);
    EXPECT_EQ(view->syntaxNode(0), std::nullopt);
    EXPECT_EQ(view->caretRect(), std::nullopt);
    view->insertText(u"x");
    view->moveCaret(CaretMovement::right, SelectionMode::extend);
    view->layoutIfNeeded();
    EXPECT_EQ(view->text(), u"");
}

TEST_F(DelegatedText, EditingBeginsAndEndsAsTheDelegateWants) {
    open(u"|ab");
    delegate->allows = false;
    EXPECT_FALSE(view.beginEditing());
    EXPECT_THAT(delegate->taken(), ElementsAre("should begin"));
    delegate->allows = true;
    EXPECT_TRUE(view.beginEditing());
    EXPECT_TRUE(view.beginEditing());
    EXPECT_THAT(delegate->taken(), ElementsAre("should begin", "began"));
    delegate->allows = false;
    EXPECT_FALSE(view.endEditing());
    EXPECT_TRUE(view.isEditing());
    delegate->allows = true;
    EXPECT_TRUE(view.endEditing());
    EXPECT_THAT(delegate->taken(), ElementsAre("should end", "should end", "ended"));
    EXPECT_EQ(text.host->editingChanges, 2);
}

TEST_F(DelegatedText, WhatIsNotEditableMayBecomeSoWhenEditingBegins) {
    open(u"a|b");
    view.setEditable(false);
    EXPECT_FALSE(view.beginEditing());
    delegate->makesEditable = true;
    EXPECT_TRUE(view.beginEditing());
    EXPECT_THAT(delegate->taken(), ElementsAre("should begin", "should begin", "began"));
    delegate->allows = false;
    view.setMarkedText(u"m", {});
    delegate->allows = true;
    view.insertText(u"x");
    delegate->taken();
    view.setEditable(false);
    EXPECT_THAT(delegate->taken(), ElementsAre("ended"));
    EXPECT_EQ(text.marked(), u"ax|b");
    view.insertText(u"y");
    view.deleteBackward();
    view.paste(u"y");
    view.undo();
    view.shiftRight();
    view.replaceText({{{{0, 1}, u"y"}}});
    EXPECT_FALSE(view.canUndo());
    EXPECT_EQ(text.marked(), u"ax|b");
    EXPECT_THAT(delegate->taken(), ElementsAre());
}

TEST_F(DelegatedText, ChangesAreAskedForAndTold) {
    open(u"a|b");
    view.insertText(u"x");
    EXPECT_THAT(delegate->taken(), ElementsAre("should change", "changed", "selection"));
    EXPECT_THAT(text.host->replacements, ElementsAre(std::pair(TextRange{1, 0}, std::u16string(u">x"))));
    view.undo();
    EXPECT_EQ(text.host->replacements.back(), std::pair(TextRange{1, 1}, std::u16string(u"x>")));
    delegate->taken();
    delegate->allows = false;
    view.insertText(u"x");
    view.replace({0, 1}, u"x");
    view.paste(u"x");
    view.setMarkedText(u"x", {});
    view.deleteText(TextDeletion::forward);
    view.deleteBackward();
    view.moveText({0, 1}, 2);
    EXPECT_EQ(text.marked(), u"a|b");
    EXPECT_THAT(delegate->taken(), testing::Each(std::string("should change")));
    view.setText(u"new");
    EXPECT_EQ(text.marked(), u"n|ew");
    EXPECT_FALSE(view.canUndo());
    EXPECT_FALSE(view.canRedo());
    EXPECT_GE(text.host->exchanges, 1);
}

TEST_F(DelegatedText, ChangesOfOthersAreTakenAsTheyAre) {
    open(u"one two th|ree");
    view.setLineEndings(LineEnding::crlf);
    view.takeChange({4, 3}, u"2\n\r");
    EXPECT_EQ(text.marked(), u"one 2\n\r th|ree");
    EXPECT_THAT(delegate->taken(), ElementsAre("changed", "selection", "selection"));
    view.setSelectedRange(TextRange{2, 4});
    view.takeChange({3, 100}, u"!");
    EXPECT_EQ(text.marked(), u"on|e!|");
    view.undo();
    EXPECT_EQ(text.marked(), u"on|e 2\n|\r three");
    view.undo();
    EXPECT_EQ(text.marked(), u"one two th|ree");
}

TEST_F(DelegatedText, PairsAreAskedFor) {
    open(u"a|");
    view.setCharacterPairs({std::make_shared<Brackets>()});
    view.insertText(u"(");
    EXPECT_EQ(text.marked(), u"a(|)");
    EXPECT_THAT(delegate->taken(), testing::Contains("should pair"));
    view.insertText(u")");
    EXPECT_EQ(text.marked(), u"a()|");
    EXPECT_THAT(delegate->taken(), ElementsAre("should skip", "selection"));
    delegate->allows = false;
    view.setSelectedRange(TextRange{2, 0});
    view.insertText(u")");
    view.insertText(u"(");
    EXPECT_EQ(text.marked(), u"a(|)");
}

TEST_F(DelegatedText, TheGutterTellsOfItsWidth) {
    open(u"|a\nb\nc");
    view.setShowLineNumbers(true);
    EXPECT_THAT(delegate->taken(), ElementsAre("gutter"));
    EXPECT_EQ(view.gutterWidth(), 10 + 2 * 6);
    view.insertText(u"1\n2\n3\n4\n5\n6\n7\n8");
    EXPECT_THAT(delegate->taken(), testing::Contains("gutter"));
    EXPECT_EQ(view.gutterWidth(), 20 + 2 * 6);
}

TEST_F(DelegatedText, AFloatingCursorTakesTheCaretAlong) {
    open(u"|abcdef");
    view.beginFloatingCursor({0, 0});
    EXPECT_FALSE(view.hasFloatingCursor());
    view.beginEditing();
    delegate->taken();
    view.updateFloatingCursor({30, 5});
    EXPECT_EQ(text.marked(), u"|abcdef");
    view.beginFloatingCursor({0, 0});
    view.updateFloatingCursor({41, 500});
    EXPECT_EQ(text.marked(), u"abcd|ef");
    EXPECT_THAT(delegate->taken(), ElementsAre("floating", "selection"));
    view.endFloatingCursor();
    view.endFloatingCursor();
    EXPECT_THAT(delegate->taken(), ElementsAre("floated"));
}

HighlightNavigationController::Ranges ranges(std::initializer_list<TextRange> places) {
    HighlightNavigationController::Ranges ranges;
    for (const TextRange& range : places)
        ranges.push_back(std::make_shared<HighlightedRange>(HighlightedRange{.range = range}));
    return ranges;
}

std::vector<TextRange> places(const TextView& view) {
    std::vector<TextRange> places;
    for (const auto& range : view.highlightedRanges())
        places.push_back(range->range);
    return places;
}

TEST_F(DelegatedText, HighlightedRangesAreSteppedThrough) {
    open(u"|ab cd ef");
    view.setHighlightedRanges(ranges({{0, 2}, {4, 2}}));
    view.selectNextHighlightedRange();
    EXPECT_EQ(view.selectedRange(), (TextRange{0, 2}));
    EXPECT_TRUE(view.isEditing());
    view.selectNextHighlightedRange();
    view.selectNextHighlightedRange();
    EXPECT_EQ(view.selectedRange(), (TextRange{4, 2}));
    view.setHighlightedRangeLoopingMode(HighlightedRangeLoopingMode::enabled);
    delegate->taken();
    view.selectNextHighlightedRange();
    EXPECT_EQ(view.selectedRange(), (TextRange{0, 2}));
    EXPECT_THAT(delegate->taken(), ElementsAre("selection", "to first"));
    EXPECT_FALSE(view.canReplaceTextInHighlightedRange());
    view.selectPreviousHighlightedRange();
    EXPECT_THAT(delegate->taken(), ElementsAre("selection", "to last"));
    EXPECT_TRUE(view.canReplaceTextInHighlightedRange());
    view.replaceTextInHighlightedRange();
    EXPECT_THAT(delegate->taken(),
                ElementsAre("can replace", "replace", "should change", "changed", "selection"));
    EXPECT_EQ(text.marked(), u"ab cnew|ef");
    EXPECT_EQ(localizedString(replaceItemTitle), "Replace");
    EXPECT_DEATH(view.selectHighlightedRange(1), "at index 1. There is 1 highlighted range");
}

TEST_F(DelegatedText, HighlightedRangesMoveAlongWithTheText) {
    open(u"|ab cd ef gh");
    view.setHighlightedRanges(ranges({{0, 2}, {3, 2}, {6, 2}, {9, 2}}));
    view.replace({4, 0}, u"xyz");
    view.setSelectedRange(TextRange{0, 0});
    view.insertText(u"__");
    EXPECT_THAT(places(view), ElementsAre(TextRange{2, 2}, TextRange{11, 2}, TextRange{14, 2}));
    view.deleteBackward();
    EXPECT_THAT(places(view), ElementsAre(TextRange{1, 2}, TextRange{10, 2}, TextRange{13, 2}));
    view.selectHighlightedRange(1);
    EXPECT_EQ(view.text(*view.selectedRange()), u"ef");
    view.replaceText({{{{0, 1}, u"new"}}});
    EXPECT_THAT(places(view), ElementsAre());
}

TEST(TextViewTest, AStateKeepsTheSelectionInsideAndEndsWhatCouldBeUndone) {
    ShownText text(u"abc|defgh|");
    text.view->setHighlightedRanges(ranges({{0, 2}}));
    text.view->insertText(u"x");
    text.view->setMarkedText(u"yz", {});
    text.view->setSelectedRange(TextRange{3, 4});
    text.view->setState(TextViewState(TextStore(u"1\n23"), text.view->theme(), *text.measurer));
    EXPECT_EQ(text.marked(), u"1\n2|3|");
    EXPECT_FALSE(text.view->canUndo());
    EXPECT_EQ(text.view->markedRange(), std::nullopt);
    EXPECT_THAT(places(*text.view), ElementsAre());
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.after(CaretMovement::up), u"1|\n23");
    EXPECT_EQ(text.view->lineMovementController().locationByLineOffset(1, 1), 3);
}

TEST(TextViewTest, UndoAndRedoGoByTime) {
    ShownText text(u"|");
    text.view->insertText(u"a");
    text.clock->advance(0.9);
    text.view->insertText(u"b");
    text.clock->advance(0.2);
    text.view->insertText(u"c");
    text.view->undo();
    EXPECT_EQ(text.marked(), u"ab|");
    text.view->undo();
    EXPECT_EQ(text.marked(), u"|");
    EXPECT_FALSE(text.view->canUndo());
    text.view->redo();
    EXPECT_EQ(text.text(), u"ab");
    text.view->insertText(u"x");
    text.view->paste(u"p\r\nq");
    text.view->insertText(u"y");
    text.view->undo();
    EXPECT_EQ(text.text(), u"abxp\nq");
    text.view->undo();
    EXPECT_EQ(text.text(), u"abx");
}

TEST(TextViewTest, LinesMoveAndComeBack) {
    struct Move {
        const char16_t* before;
        bool isUp;
        const char16_t* after;
    };

    const Move moves[] = {
        {u"a\nb|\nc\n", true, u"b|\na\nc\n"},
        {u"a\nb|\nc\n", false, u"a\nc\nb|\n"},
        {u"|a\nb|\nc", false, u"c\n|a\nb|"},
        {u"a\nb\nc|", true, u"a\nc|\nb\n"},
        {u"a|\nb", true, u"a|\nb"},
        {u"a\nb|", false, u"a\nb|"},
        {u"a|", false, u"a|"},
        {u"a\r\n|b|\r\nc", true, u"|b|\r\na\r\nc"},
    };
    for (const auto& [before, isUp, after] : moves) {
        ShownText text(before);
        isUp ? text.view->moveSelectedLinesUp() : text.view->moveSelectedLinesDown();
        EXPECT_EQ(text.marked(), after);
    }
    ShownText text(u"a\nb|\n");
    text.view->insertText(u"x");
    text.view->moveSelectedLinesUp();
    EXPECT_EQ(text.view->undoManager().undoActionName(), "Move Lines Up");
    text.view->undo();
    EXPECT_EQ(text.marked(), u"a\nbx|\n");
    text.view->redo();
    EXPECT_EQ(text.text(), u"bx\na\n");
}

TEST(TextViewTest, TextIsDraggedInOneStep) {
    ShownText text(u"|one two");
    text.view->moveText({0, 4}, 7);
    EXPECT_EQ(text.marked(), u"two|one |");
    text.view->moveText({3, 4}, 5);
    text.view->moveText({3, 4}, 7);
    EXPECT_EQ(text.marked(), u"two|one |");
    text.view->undo();
    EXPECT_EQ(text.marked(), u"|one two");
    text.view->moveText({4, 3}, -9);
    EXPECT_EQ(text.marked(), u"|two|one ");
}

TEST(TextViewTest, MarkedTextIsReplacedUntilItIsSettled) {
    ShownText text(u"a|bc|d");
    text.view->setMarkedText(u"ni", {2, 0});
    EXPECT_EQ(text.marked(), u"ani|d");
    EXPECT_EQ(text.view->markedRange(), (TextRange{1, 2}));
    text.view->setMarkedText(u"nih", {1, 9});
    EXPECT_EQ(text.marked(), u"an|ih|d");
    text.view->unmarkText();
    EXPECT_EQ(text.view->markedRange(), std::nullopt);
    text.view->setMarkedText(u"x", {-4, -1});
    EXPECT_EQ(text.marked(), u"an|xd");
    text.view->setMarkedText(u"", {});
    EXPECT_EQ(text.marked(), u"an|d");
    EXPECT_EQ(text.view->markedRange(), std::nullopt);
    text.view->setMarkedText(u"y", {1, 0});
    text.view->insertText(u"z");
    EXPECT_EQ(text.marked(), u"anz|d");
}

TEST(TextViewTest, PlacesAreLinesAndColumns) {
    ShownText text(u"ab\r\n|c");
    EXPECT_EQ(text.view->textLocation(5), (TextLocation{1, 1}));
    EXPECT_EQ(text.view->textLocation(6), std::nullopt);
    EXPECT_EQ(text.view->location({0, 9}), 2);
    EXPECT_EQ(text.view->location({2, 0}), std::nullopt);
    EXPECT_EQ(text.view->location({0, -1}), std::nullopt);
    EXPECT_FALSE(text.view->goToLine(2));
    EXPECT_FALSE(text.view->goToLine(-1));
    EXPECT_TRUE(text.view->goToLine(0, GoToLineSelection::end));
    EXPECT_EQ(text.marked(), u"ab|\r\nc");
    EXPECT_TRUE(text.view->goToLine(0, GoToLineSelection::line));
    EXPECT_EQ(text.marked(), u"|ab|\r\nc");
    EXPECT_TRUE(text.view->goToLine(1));
    EXPECT_EQ(text.marked(), u"ab\r\n|c");
    EXPECT_EQ(text.view->text(TextRange{3, -2}), u"b\r");
}

TEST(TextViewTest, SearchAndReplaceWork) {
    ShownText text(u"ab\nAb|");
    const auto results = text.view->search({.text = u"ab"});
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[1].startLocation, (TextLocation{1, 0}));
    const auto replaced = text.view->search({.text = u"(a)b", .isRegularExpression = true}, u"\\U$1");
    ASSERT_EQ(replaced.size(), 2U);
    EXPECT_EQ(replaced[0].replacementText, u"A");
    EXPECT_EQ(text.view->textPreview({3, 2})->previewRange, (TextRange{3, 2}));
    text.view->replaceText({{{{0, 2}, u"x"}, {{3, 2}, u"y"}}});
    EXPECT_EQ(text.marked(), u"x\ny|");
    text.view->undo();
    EXPECT_EQ(text.text(), u"ab\nAb");
}

TEST(QuickTapGestureRecognizer, LongPressesAreNoTaps) {
    const auto clock = std::make_shared<FakeTimerScheduler>();
    int taps = 0;
    QuickTapGestureRecognizer recognizer(clock, [&] { ++taps; });
    recognizer.touchesEnded();
    recognizer.touchesBegan();
    clock->advance(0.25);
    recognizer.touchesEnded();
    EXPECT_EQ(recognizer.state(), QuickTapGestureRecognizer::State::recognized);
    clock->advance(1);
    recognizer.touchesBegan();
    clock->advance(0.31);
    EXPECT_EQ(recognizer.state(), QuickTapGestureRecognizer::State::failed);
    recognizer.touchesEnded();
    recognizer.touchesBegan();
    recognizer.touchesCancelled();
    recognizer.touchesEnded();
    EXPECT_EQ(taps, 1);
    EXPECT_EQ(clock->timerCount(), 0U);
}

} // namespace
