#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/editing/tests/EditedText.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"
#include "languages/grammars/Grammars.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;

namespace {

TEST(TextInputViewTest, AReplacementGoesItsStepsInOrder) {
    EditedText text(u"one\ntw|o");
    text.view->insertText(u"x");
    EXPECT_THAT(text.calls, ElementsAre("should change", "typeset 1", "needs layout", "layout", "scroll to 7",
                                        "changed", "selection"));
    EXPECT_EQ(text.delegate->askedRange, (TextRange{6, 0}));
    EXPECT_EQ(text.delegate->askedText, u"x");
    text.calls.clear();
    text.layout->size = {100, 200};
    text.view->replace({2, 3}, u"\r");
    EXPECT_EQ(text.marked(), u"on\n|wxo");
    EXPECT_THAT(text.calls, ElementsAre("should change", "invalidate content size", "remove line",
                                        "typeset 2", "line count", "needs layout", "layout", "scroll to 3",
                                        "changed", "content size", "selection"));
    text.calls.clear();
    text.layout->size = {};
    text.view->replace({0, 0}, u"\n");
    EXPECT_THAT(text.calls, ::testing::Not(::testing::Contains("content size")));
}

// Text, lines and selection are those after the edit by the time that anyone is told.
TEST(TextInputViewTest, WhoIsToldFindsTheDocumentInStepAndMayEdit) {
    EditedText text(u"a|");
    text.delegate->onChange = [&] {
        EXPECT_EQ(text.marked(), u"a\nb|");
        EXPECT_EQ(text.view->document().lineManager->lineCount(), 2);
        text.view->replace({0, 3}, u"");
    };
    text.view->insertText(u"\nb");
    EXPECT_EQ(text.marked(), u"|");
    EXPECT_EQ(lineFault(text.view->document()), std::nullopt);
    text.undo();
    EXPECT_EQ(text.marked(), u"a|");
}

TEST(TextInputViewTest, ARefusalLeavesEverythingAsItIs) {
    EditedText text(u"ab|cd|");
    text.delegate->allowsChange = false;
    text.view->setMarkedRange(TextRange{1, 1});
    text.view->insertText(u"x");
    text.view->replace({0, 2}, u"y");
    EXPECT_EQ(text.marked(), u"ab|cd|");
    EXPECT_EQ(text.view->markedRange(), (TextRange{1, 1}));
    text.view->deleteBackward();
    EXPECT_EQ(text.marked(), u"ab|cd|");
    EXPECT_EQ(text.view->markedRange(), std::nullopt);
    EXPECT_FALSE(text.view->undoManager().canUndo());
}

TEST(TextInputViewTest, TypingGoesInPlaceOfTheMarkedRangeElseOfTheSelection) {
    EditedText text(u"abc|def|");
    text.view->setMarkedRange(TextRange{0, 2});
    text.view->insertText(u"x");
    EXPECT_EQ(text.marked(), u"x|cdef");
    EXPECT_EQ(text.view->markedRange(), std::nullopt);
    text.select(2, 9);
    text.view->insertText(u"");
    EXPECT_EQ(text.marked(), u"xc|");
    text.view->setSelectedRange(std::nullopt);
    text.view->insertText(u"y");
    text.view->deleteBackward();
    text.view->shiftRight();
    EXPECT_EQ(text.text(), u"xc");
    text.view->setMarkedRange(TextRange{1, 1});
    text.view->replace({0, 2}, u"");
    text.view->insertText(u"z");
    EXPECT_EQ(text.marked(), u"z|");
}

TEST(TextInputViewTest, RangesAreBroughtIntoTheText) {
    EditedText text(u"abcd");
    text.select(3, -2);
    EXPECT_EQ(text.marked(), u"a|bc|d");
    text.select(1, -7);
    EXPECT_EQ(text.marked(), u"|a|bcd");
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    for (const TextRange range : {TextRange{most, most}, TextRange{most, -most - 1},
                                  TextRange{-most - 1, most}, TextRange{9, -1}, TextRange{2, -most - 1}}) {
        text.view->setSelectedRange(range);
        text.view->setMarkedRange(range);
        text.view->replace(range, u"x");
        text.view->insertText(u"y");
    }
    EXPECT_EQ(lineFault(text.view->document()), std::nullopt);
}

TEST(TextInputViewTest, IncomingTextGetsTheLineEndingsOfTheDocumentButNotThatOfAnUndo) {
    EditedText text(u"|a\r\nb|");
    text.view->insertText(u"x\r\ny\rz");
    EXPECT_EQ(text.marked(), u"x\ny\nz|");
    EXPECT_EQ(text.delegate->askedText, u"x\ny\nz");
    text.undo();
    EXPECT_EQ(text.marked(), u"|a\r\nb|");
    text.view->setLineEndings(LineEnding::crlf);
    text.view->replace({0, 1}, u"\n\r");
    EXPECT_EQ(text.text(), u"\r\n\r\n\r\nb");
    text.select(8);
    text.view->insertText(u"\r");
    EXPECT_EQ(text.marked(), u"\r\n\r\n\r\nb\r\n|");
}

TEST(TextInputViewTest, ASecondOfTypingIsUndoneAtOnce) {
    EditedText text(u"|");
    text.view->insertText(u"a");
    text.clock->advance(0.9);
    text.view->insertText(u"b");
    text.clock->advance(0.2);
    text.view->insertText(u"c");
    EXPECT_EQ(text.view->undoManager().undoActionName(), "Typing");
    text.clock->advance(0.2);
    for (const auto* expected : {u"ab|", u"|", u"|"}) {
        text.undo();
        EXPECT_EQ(text.marked(), expected);
    }
    for (const auto* expected : {u"ab|", u"abc|"}) {
        text.redo();
        EXPECT_EQ(text.marked(), expected);
    }
}

TEST(TextInputViewTest, BackspaceTakesWholeCharactersAndPutsTheCaretBackBehindOne) {
    EditedText text(u"e\u0301\U0001F468\u200D\U0001F469\r\nx|");
    for (const auto* expected : {u"e\u0301\U0001F468\u200D\U0001F469\r\n|",
                                 u"e\u0301\U0001F468\u200D\U0001F469|", u"e\u0301|", u"|", u"|"}) {
        text.backspace();
        EXPECT_EQ(text.marked(), expected);
        EXPECT_EQ(lineFault(text.view->document()), std::nullopt);
    }
    EXPECT_THAT(text.calls, ::testing::Contains("input: selection changed"));
    text.undo();
    EXPECT_EQ(text.marked(), u"e\u0301\U0001F468\u200D\U0001F469\r\nx|");
}

TEST(TextInputViewTest, DeletingASelectionIsAStepOfItsOwn) {
    EditedText text(u"|");
    text.view->insertText(u"abcd");
    text.select(1, 2);
    text.backspace();
    text.view->insertText(u"x");
    for (const auto* expected : {u"a|d", u"a|bc|d", u"|"}) {
        text.undo();
        EXPECT_EQ(text.marked(), expected);
    }
    text.redo();
    text.redo();
    EXPECT_EQ(text.marked(), u"a|d");
    text.view->setMarkedRange(TextRange{0, 2});
    text.view->deleteBackward();
    EXPECT_EQ(text.view->markedRange(), std::nullopt);
    EXPECT_EQ(text.marked(), u"|");
}

TEST(TextInputViewTest, WholeTextsAreExchangedInOrderAndAsOneStep) {
    EditedText text(u"one\ntwo|\nthree|");
    text.view->insertText(u"x");
    text.calls.clear();
    text.view->setStringWithUndoAction(TextStore(u"12"));
    EXPECT_EQ(text.marked(), u"12|");
    EXPECT_THAT(text.calls,
                ElementsAre("input: selection will", "invalidate content size", "remove all lines",
                            "needs layout", "input: selection did", "changed", "scroll to 2", "changed",
                            "input: selection will", "input: selection did", "selection"));
    EXPECT_EQ(text.view->undoManager().undoActionName(), "Replace All");
    EXPECT_FALSE(text.view->undoManager().hasOpenGroup());
    text.undo();
    EXPECT_EQ(text.marked(), u"one\ntwox|");
    text.undo();
    EXPECT_EQ(text.marked(), u"one\ntwo|\nthree|");
    text.redo();
    text.redo();
    EXPECT_EQ(text.marked(), u"12|");
    EXPECT_EQ(lineFault(text.view->document()), std::nullopt);
}

TEST(TextInputViewTest, AnEqualTextIsNoChange) {
    EditedText text(u"one|");
    text.view->setStringWithUndoAction(TextStore(u"one"));
    text.view->setString(TextStore(u"one"));
    EXPECT_TRUE(text.calls.empty());
    EXPECT_FALSE(text.view->undoManager().canUndo());
}

TEST(TextInputViewTest, ABatchKeepsTheCaretInItsRowAndColumn) {
    EditedText text(u"one\ntwo |three\n");
    text.view->replaceText({});
    EXPECT_TRUE(text.calls.empty());
    text.view->replaceText({{{{0, 3}, u"longer"}, {{4, 3}, u"2"}, {{8, 5}, u"3"}}});
    EXPECT_EQ(text.marked(), u"longer\n2 3|\n");
    text.undo();
    EXPECT_EQ(text.marked(), u"one\ntwo |three\n");
    text.view->replaceText({{{{3, 11}, u""}}});
    EXPECT_EQ(text.marked(), u"one|");
    text.view->setSelectedRange(std::nullopt);
    text.view->replaceText({{{{0, 1}, u""}}});
    EXPECT_EQ(text.view->selectedRange(), std::nullopt);
}

TEST(TextInputViewTest, ANewStateEndsWhatCouldBeUndoneAndKeepsTheSelectionInTheText) {
    EditedText text(u"one two|");
    text.view->insertText(u"x");
    text.calls.clear();
    const TextViewState state(TextStore(u"three"), std::make_shared<DefaultTheme>(), *text.measurer);
    text.view->setState(state);
    EXPECT_EQ(text.marked(), u"three|");
    EXPECT_FALSE(text.view->undoManager().canUndo());
    EXPECT_EQ(text.clock->timerCount(), 0U);
    EXPECT_EQ(text.calls.front(), "document");
    text.view->insertText(u"y");
    EXPECT_EQ(state.document().stringView->string(), u"threey");
}

// An undo of one document must not go on in the next.
TEST(TextInputViewTest, AStateThatComesWithinAnUndoEndsIt) {
    EditedText text(u"|");
    text.view->insertText(u"abc");
    text.view->insertText(u"def");
    text.delegate->onChange = [&] {
        text.view->setState(
            TextViewState(TextStore(u"new"), std::make_shared<DefaultTheme>(), *text.measurer));
    };
    text.undo();
    EXPECT_EQ(text.text(), u"new");
    EXPECT_FALSE(text.view->undoManager().canUndo());
}

TEST(TextInputViewTest, UndoAfterTheViewHasGoneDoesNothing) {
    auto text = std::make_unique<EditedText>(u"a|");
    text->view->setDelegate({});
    text->view->setInputDelegate({});
    text->view->insertText(u"b");
    text->backspace();
    text->view->shiftRight();
    EXPECT_EQ(text->text(), u"\ta");
}

TEST(TextInputViewTest, LinesThatABackgroundParseChangedAreTypesetAnew) {
    TreeSitterLanguageMode mode(std::make_shared<const TreeSitterLanguage>(languages::grammarNamed("JSON")));
    mode.setReparseBudget(std::chrono::nanoseconds(0));
    const auto executor = std::make_shared<QueuedExecutor>();
    EditedText text(u"[1,\n2|]", &mode, executor);
    text.view->insertText(u"3");
    text.calls.clear();
    executor->runNext();
    EXPECT_THAT(text.calls, ElementsAre("typeset 1", "needs layout"));
    EXPECT_EQ(text.view->treeSitterLanguageMode(14), std::nullopt);
    EXPECT_EQ(text.view->treeSitterLanguageMode(10)->length, 4);
}

TEST(TextViewStateTest, KnowsWhatTheTextIsWrittenWith) {
    const FakeTextMeasurer measurer;
    const auto theme = std::make_shared<DefaultTheme>();
    const TextViewState state(TextStore(u"a\r\nb\r\nc\n"), theme, measurer);
    EXPECT_EQ(state.detectedLineEndings(), LineEnding::crlf);
    EXPECT_EQ(state.detectedIndentStrategy(), DetectedIndentStrategy::unknown());
    EXPECT_EQ(state.theme(), theme);
    EXPECT_EQ(state.document().lineManager->lineCount(), 4);
    EXPECT_EQ(state.document().lineManager->lineAtRow(2).data().lineHeight(),
              1.25 * theme->font().pointSize + 1);
    EXPECT_EQ(TextViewState(TextStore(u"a"), theme, measurer).detectedLineEndings(), std::nullopt);
}

// The lines keep their text and their selection; the last one has no break to take along.
TEST(TextInputViewTest, LinesMoveAsOneStepThatTheInputSystemKnowsOf) {
    EditedText text(u"a\n|bc|\nd");
    text.view->insertText(u"e");
    text.select(2, 1);
    text.view->moveSelectedLines(1, moveLinesDownActionName);
    EXPECT_EQ(text.marked(), u"a\nd\n|e|");
    EXPECT_THAT(text.calls, ::testing::IsSupersetOf({"input: selection will", "input: selection did"}));
    EXPECT_EQ(text.delegate->replacements.back(), std::pair(TextRange{3, 0}, std::u16string(u">\ne")));
    EXPECT_EQ(lineFault(text.view->document()), std::nullopt);
    text.view->insertText(u"f");
    text.undo();
    text.undo();
    EXPECT_EQ(text.marked(), u"a\n|e|\nd");
    text.undo();
    EXPECT_EQ(text.marked(), u"a\n|bc|\nd");
    text.view->setSelectedRange(std::nullopt);
    text.view->moveSelectedLines(-1, moveLinesUpActionName);
    text.view->paste(u"x");
    text.view->setMarkedText(u"x", {});
    text.view->deleteInFrontOfCaret();
    EXPECT_EQ(text.text(), u"a\nbc\nd");
}

TEST(TextInputViewTest, WhatIsMarkedGoesAlongWithOtherEdits) {
    EditedText text(u"abc|");
    const auto marked = [&] { return text.view->markedRange(); };
    text.view->setMarkedText(u"mn", {});
    text.view->replaceCharacters({0, 1}, u"__", std::nullopt, typingActionName);
    EXPECT_EQ(marked(), (TextRange{4, 2}));
    text.view->replaceCharacters({6, 0}, u"!", std::nullopt, typingActionName);
    EXPECT_EQ(marked(), (TextRange{4, 2}));
    text.view->replaceCharacters({3, 2}, u"", std::nullopt, typingActionName);
    EXPECT_EQ(marked(), std::nullopt);
    text.select(0);
    text.view->setMarkedText(u"mn", {});
    text.undo();
    EXPECT_EQ(marked(), std::nullopt);
    text.view->setMarkedText(u"mn", {});
    text.view->replaceText({{{{0, 1}, u"x"}}});
    EXPECT_EQ(marked(), std::nullopt);
}

TEST(TextInputViewTest, ACharacterInFrontOfTheCaretGoesWholeAndComesBack) {
    EditedText text(u"a\U0001F600|b");
    text.view->deleteInFrontOfCaret();
    EXPECT_EQ(text.marked(), u"a|b");
    text.undo();
    EXPECT_EQ(text.marked(), u"a\U0001F600|b");
    text.select(0);
    text.view->deleteInFrontOfCaret();
    text.select(0, 1);
    text.view->deleteInFrontOfCaret();
    EXPECT_EQ(text.text(), u"a\U0001F600b");
}

} // namespace
