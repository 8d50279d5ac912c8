#include "Tessarine/textview/WordMovement.h"
#include "Tessarine/textview/tests/ShownText.h"

#include <gtest/gtest.h>

using namespace tessarine;
using enum CaretMovement;

namespace {

struct Step {
    const char16_t* before;
    CaretMovement movement;
    const char16_t* after;
};

std::string utf8(std::u16string_view text) {
    std::string result;
    for (const char16_t unit : text)
        result += unit < 128 ? std::string(1, static_cast<char>(unit)) : "\\" + std::to_string(unit);
    return result;
}

TEST(SelectionMovement, StepsLeadWhereTheTableSays) {
    const Step steps[] = {
        {u"|a", left, u"|a"},
        {u"a|", right, u"a|"},
        {u"a|\r\nb", right, u"a\r\n|b"},
        {u"a\r\n|b", left, u"a|\r\nb"},
        {u"|\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", right, u"\U0001F1E9\U0001F1EA|\U0001F1EB\U0001F1F7"},
        {u"e\u0301\u0327|x", left, u"|e\u0301\u0327x"},
        {u"a|bc|d", left, u"a|bcd"},
        {u"a|bc|d", right, u"abc|d"},
        {u"foo_|bar += 1", wordRight, u"foo_bar| += 1"},
        {u"foo_bar| += 1", wordRight, u"foo_bar +=| 1"},
        {u"foo_bar +=| 1", wordLeft, u"foo_bar |+= 1"},
        {u"foo |  \n  x", wordRight, u"foo   |\n  x"},
        {u"foo|\n  x", wordRight, u"foo\n|  x"},
        {u"foo\n  |x", wordLeft, u"foo\n|  x"},
        {u"foo\n|  x", wordLeft, u"foo|\n  x"},
        {u"a e\u0301t\u00E9| b", wordLeft, u"a |e\u0301t\u00E9 b"},
        {u"x\n  ab|", lineStart, u"x\n  |ab"},
        {u"x\n  |ab", lineStart, u"x\n|  ab"},
        {u"x\n |  ab", lineStart, u"x\n|   ab"},
        {u"x\n|  ab", lineStart, u"x\n  |ab"},
        {u"0123|456789abc\nx", lineEnd, u"0123456789|abc\nx"},
        {u"0123456789|abc\nx", lineEnd, u"0123456789abc|\nx"},
        {u"ab|c\nx", documentEnd, u"abc\nx|"},
        {u"ab|c\nx", documentStart, u"|abc\nx"},
        {u"ab|c", up, u"|abc"},
        {u"ab|c", down, u"abc|"},
        {u"a\nb|", up, u"a|\nb"},
        {u"|\n\n", down, u"\n|\n"},
        {u"\n\n|", up, u"\n|\n"},
    };
    for (const auto& [before, movement, after] : steps) {
        ShownText text(before);
        EXPECT_EQ(utf8(text.after(movement)), utf8(after))
            << utf8(before) << ", movement " << static_cast<int>(movement);
    }
}

TEST(SelectionMovement, RowsAreThoseOnScreenAndTheCaretKeepsItsPlaceInPoints) {
    ShownText text(u"01234567|89abcdefghij\n\nxyz\n0123456789");
    EXPECT_EQ(text.after(down), u"0123456789abcdefgh|ij\n\nxyz\n0123456789");
    EXPECT_EQ(text.after(down), u"0123456789abcdefghij\n|\nxyz\n0123456789");
    EXPECT_EQ(text.after(down), u"0123456789abcdefghij\n\nxyz|\n0123456789");
    EXPECT_EQ(text.after(down), u"0123456789abcdefghij\n\nxyz\n01234567|89");
    EXPECT_EQ(text.after(up), u"0123456789abcdefghij\n\nxyz|\n0123456789");
    text.after(left);
    EXPECT_EQ(text.after(down), u"0123456789abcdefghij\n\nxyz\n01|23456789");
}

// Between two rows the caret is in the one to which a step has led, and shows there.
TEST(SelectionMovement, AtTheStartOfARowTheCaretShowsInIt) {
    ShownText text(u"|0123456789abcdefghijklm");
    EXPECT_EQ(text.after(down), u"0123456789|abcdefghijklm");
    EXPECT_EQ(text.view->caretRect()->x, 0);
    EXPECT_EQ(text.view->caretRect()->y, 11);
    EXPECT_EQ(text.after(down), u"0123456789abcdefghij|klm");
    EXPECT_EQ(text.after(up), u"0123456789|abcdefghijklm");
    EXPECT_EQ(text.after(lineEnd), u"0123456789abcdefghij|klm");
    EXPECT_EQ(text.view->caretRect()->x, 100);
    EXPECT_EQ(text.view->caretRect()->y, 11);
}

TEST(SelectionMovement, ARowOfWideCharactersIsEnteredAtTheStartOfOne) {
    ShownText text(u"abc|\n\U0001F600\U0001F600");
    EXPECT_EQ(utf8(text.after(down)), utf8(u"abc\n\U0001F600|\U0001F600"));
}

TEST(SelectionMovement, PagesAreAsManyRowsAsShowLessOne) {
    std::u16string lines;
    for (int i = 0; i < 40; ++i)
        lines += u"ab\n";
    ShownText text(u"a|b\n" + lines);
    text.after(pageDown);
    EXPECT_EQ(text.view->selectedRange(), (TextRange{9 * 3 + 1, 0}));
    text.after(pageDown, SelectionMode::extend);
    EXPECT_EQ(text.view->selectedRange(), (TextRange{9 * 3 + 1, 9 * 3}));
    EXPECT_GT(text.offset(), 0);
    text.after(pageUp);
    text.after(pageUp);
    EXPECT_EQ(text.after(pageUp), u"|ab\n" + lines);
    EXPECT_EQ(text.offset(), 0);
}

TEST(SelectionMovement, ExtendingKeepsTheAnchorOnEitherSide) {
    ShownText text(u"one two| three");
    EXPECT_EQ(text.after(wordLeft, SelectionMode::extend), u"one |two| three");
    EXPECT_EQ(text.after(wordLeft, SelectionMode::extend), u"|one two| three");
    EXPECT_EQ(text.view->movement().anchor(), 7);
    EXPECT_EQ(text.view->movement().head(), 0);
    EXPECT_EQ(text.after(lineEnd, SelectionMode::extend), u"one two| |three");
    text.view->setSelectedRange(TextRange{4, -2});
    EXPECT_EQ(text.view->movement().anchor(), 2);
    EXPECT_EQ(text.after(right, SelectionMode::extend), u"on|e t|wo three");
    text.view->insertText(u"x");
    EXPECT_EQ(text.after(right, SelectionMode::extend), u"onx|w|o three");
}

TEST(SelectionMovement, WordsAndLinesAreSelectedAtOnceAndExtendedPieceByPiece) {
    ShownText text(u"ab cd; ef\n\nlast");
    SelectionMovement& movement = text.view->movement();
    movement.selectWordAt(4);
    EXPECT_EQ(text.marked(), u"ab |cd|; ef\n\nlast");
    movement.extendByWordsTo(8);
    EXPECT_EQ(text.marked(), u"ab |cd; ef|\n\nlast");
    movement.extendByWordsTo(1);
    EXPECT_EQ(text.marked(), u"|ab cd|; ef\n\nlast");
    EXPECT_EQ(movement.head(), 0);
    movement.selectLineAt(3);
    EXPECT_EQ(text.marked(), u"|ab cd; ef\n|\nlast");
    movement.extendByLinesTo(13);
    EXPECT_EQ(text.marked(), u"|ab cd; ef\n\nlast|");
    movement.selectWordAt(9);
    EXPECT_EQ(text.marked(), u"ab cd; |ef|\n\nlast");
    movement.selectWordAt(10);
    EXPECT_EQ(text.marked(), u"ab cd; ef\n|\nlast");
    movement.selectAll();
    EXPECT_EQ(text.marked(), u"|ab cd; ef\n\nlast|");
    movement.moveTo(-5, SelectionMode::extend);
    movement.moveTo(99, SelectionMode::extend);
    EXPECT_EQ(text.marked(), u"|ab cd; ef\n\nlast|");
}

TEST(SelectionMovement, EveryKeyDeletesItsPart) {
    struct Deletion {
        const char16_t* before;
        TextDeletion deletion;
        const char16_t* after;
    };
    using enum TextDeletion;
    const Deletion deletions[] = {
        {u"e\u0301|x", backward, u"|x"},
        {u"a\r\n|b", backward, u"a|b"},
        {u"|a", backward, u"|a"},
        {u"a|\r\nb", forward, u"a|b"},
        {u"a|", forward, u"a|"},
        {u"ab cd |x", wordBackward, u"ab |x"},
        {u"ab| cd x", wordForward, u"ab| x"},
        {u"x\nab|cd", toLineStart, u"x\n|cd"},
        {u"ab|cd\nx", toLineEnd, u"ab|\nx"},
        {u"ab|\nx", toLineEnd, u"ab|x"},
        {u"a|bc|d", forward, u"a|d"},
        {u"a|bc|d", wordBackward, u"a|d"},
    };
    for (const auto& [before, deletion, after] : deletions) {
        ShownText text(before);
        EXPECT_EQ(utf8(text.afterDeleting(deletion)), utf8(after)) << utf8(before);
        text.view->undo();
        EXPECT_EQ(utf8(text.marked()), utf8(before));
    }
}

TEST(WordMovement, HoldsTheKindsApart) {
    const StringView text(u"x1_\u00E9+= \u3042\u3044\t\n\n");
    EXPECT_EQ(wordAt(text, 2), (TextRange{0, 4}));
    EXPECT_EQ(wordAt(text, 4), (TextRange{4, 2}));
    EXPECT_EQ(wordAt(text, 6), (TextRange{6, 1}));
    EXPECT_EQ(wordAt(text, 8), (TextRange{7, 2}));
    EXPECT_EQ(wordAt(text, 10), (TextRange{9, 1}));
    EXPECT_EQ(wordAt(text, 11), (TextRange{11, 0}));
    EXPECT_EQ(wordAt(text, 12), (TextRange{12, 0}));
    EXPECT_EQ(wordContaining(text, 10), (TextRange{10, 1}));
    const StringView broken(u"a\xD83D");
    EXPECT_EQ(wordLimitAfter(broken, 0), 1);
    EXPECT_EQ(wordStartBefore(broken, 2), 1);
}

} // namespace
