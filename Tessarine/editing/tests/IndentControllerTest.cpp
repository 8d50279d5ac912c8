#include "Tessarine/editing/tests/EditedText.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"
#include "languages/grammars/Grammars.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;

namespace {

TreeSitterLanguageMode javaScript() {
    return TreeSitterLanguageMode(std::make_shared<const TreeSitterLanguage>(
        languages::grammarNamed("JavaScript"), std::nullopt, std::nullopt,
        TreeSitterIndentationScopes{.indent = {"statement_block"},
                                    .inheritIndent = {},
                                    .outdent = {"}"},
                                    .whitespaceDenotesBlocks = false}));
}

// JavaScript indented by four spaces.
struct Code : EditedText {
    explicit Code(std::u16string marked)
        : Code(std::move(marked), javaScript()) {}

    Code(std::u16string marked, const TreeSitterLanguageMode& mode)
        : EditedText(std::move(marked), &mode, std::make_shared<QueuedExecutor>()) {
        view->setIndentStrategy(IndentStrategy::space(4));
        calls.clear();
    }
};

TEST(IndentControllerTest, TabsAreAsWideAsTheirSpacesInWholePoints) {
    EditedText text;
    text.view->setIndentFont(Font::monospacedSystem(7.3));
    text.view->setIndentStrategy(IndentStrategy::tab(4));
    EXPECT_EQ(text.view->indentController().tabWidth(), 29);
    text.view->setIndentStrategy(IndentStrategy::space(3));
    EXPECT_EQ(text.view->indentController().tabWidth(), 22);
    EXPECT_THAT(text.calls, ElementsAre("tab width 15", "tab width 29", "tab width 22"));
    text.view->setIndentStrategy(IndentStrategy::space(0));
    EXPECT_EQ(text.view->indentController().indentStrategy(), IndentStrategy::space(1));
}

TEST(IndentControllerTest, ALineBreakGoesInWithItsIndent) {
    Code code(u"function f() {|}");
    code.view->insertText(u"\r");
    EXPECT_EQ(code.marked(), u"function f() {\n    |\n}");
    EXPECT_EQ(code.calls.back(), "layout");
    code.view->insertText(u"a();");
    code.view->insertText(u"\n");
    EXPECT_EQ(code.marked(), u"function f() {\n    a();\n    |\n}");
    code.undo();
    EXPECT_EQ(code.marked(), u"function f() {|}");
    code.redo();
    EXPECT_EQ(code.marked(), u"function f() {\n    a();\n    |\n}");
}

TEST(IndentControllerTest, ALineBreakWithALongSymbolLeavesTheCaretBehindTheIndent) {
    Code code(u"function f() {|x|}");
    code.view->setLineEndings(LineEnding::crlf);
    code.view->insertText(u"\n");
    EXPECT_EQ(code.marked(), u"function f() {\r\n    |\r\n}");
    EditedText text(u"  a|b");
    text.view->insertText(u"\r\n");
    EXPECT_EQ(text.marked(), u"  a\n|b");
    text.view->insertText(u"\t");
    EXPECT_EQ(text.marked(), u"  a\n\t|b");
}

TEST(IndentControllerTest, LinesAreShiftedRightBehindTheirBlanks) {
    EditedText text(u"a\n\t o|ne\n\n  tw|o\nb");
    text.view->shiftRight();
    EXPECT_EQ(text.marked(), u"a\n\t \to|ne\n\t\n  \ttw|o\nb");
    EXPECT_EQ(text.calls.front(), "input: selection will");
    EXPECT_EQ(text.calls[1], "input: text will");
    EXPECT_THAT(std::vector(text.calls.end() - 4, text.calls.end()),
                ElementsAre("selection", "input: text did", "input: selection did", "selection"));
    text.undo();
    EXPECT_EQ(text.marked(), u"a\n\t o|ne\n\n  tw|o\nb");
    text.redo();
    EXPECT_EQ(text.marked(), u"a\n\t \to|ne\n\t\n  \ttw|o\nb");
}

TEST(IndentControllerTest, OnlyWholeUnitsAreShiftedLeft) {
    Code code(u"    o|ne\n  two\n\tthree\n        fo|ur");
    code.view->shiftLeft();
    EXPECT_EQ(code.marked(), u"o|ne\n  two\n\tthree\n    fo|ur");
    code.view->shiftLeft();
    EXPECT_EQ(code.marked(), u"o|ne\n  two\n\tthree\nfo|ur");
    code.calls.clear();
    code.view->shiftLeft();
    EXPECT_THAT(code.calls, ::testing::Not(::testing::Contains("changed")));
    code.undo();
    EXPECT_EQ(code.marked(), u"    o|ne\n  two\n\tthree\n        fo|ur");
}

TEST(IndentControllerTest, WhoHearsOfAShiftMayTakeLinesOut) {
    for (const bool shiftsLeft : {false, true})
        for (const bool exchangesDocument : {false, true}) {
            Code code(u"    o|ne\n    two\n    th|ree");
            code.delegate->onChange = [&] {
                if (exchangesDocument)
                    code.view->setState(
                        TextViewState(TextStore(u"x"), std::make_shared<DefaultTheme>(), *code.measurer));
                else
                    code.view->replace({2, 100}, u"");
            };
            shiftsLeft ? code.view->shiftLeft() : code.view->shiftRight();
            EXPECT_EQ(lineFault(code.view->document()), std::nullopt);
            EXPECT_LE(code.view->selectedRange()->limit(), std::ssize(code.text()));
            if (exchangesDocument) {
                EXPECT_EQ(code.text(), u"x");
            }
        }
}

TEST(IndentControllerTest, ASelectionWithinTheRemovedIndentBeginsAtTheLine) {
    for (const auto& [before, after] : std::initializer_list<std::pair<const char16_t*, const char16_t*>>{
             {u"a\n |   one t|wo", u"a\n|one t|wo"},
             {u"a\n | |  one", u"a\n|one"},
             {u"a\n |   |one", u"a\n|one"},
             {u"a\n   | one", u"a\n|one"},
             {u"a|\n|    one", u"a|\none"}}) {
        Code code(before);
        code.view->shiftLeft();
        EXPECT_EQ(code.marked(), after);
    }
}

TEST(IndentControllerTest, BackspaceTakesAUnitOfTheIndent) {
    for (const auto& [before, after] : std::initializer_list<std::pair<const char16_t*, const char16_t*>>{
             {u"        |one", u"    |one"},
             {u"    |    one", u"|    one"},
             {u"      |  one", u"     |  one"},
             {u"  |one", u" |one"},
             {u"    onet|wo", u"    one|wo"},
             {u" \t |one", u" \t|one"},
             {u"a\n|    b", u"a|    b"},
             // The level of these is that of their columns, and no unit stands in front of the caret.
             {u"\t\tab|cdef", u"\t\ta|cdef"}}) {
        Code code(before);
        code.backspace();
        EXPECT_EQ(code.marked(), after);
    }
    Code tabs(u"\t\t|a");
    tabs.view->setIndentStrategy(IndentStrategy::tab(4));
    tabs.backspace();
    EXPECT_EQ(tabs.marked(), u"\t|a");
}

TEST(IndentControllerTest, AnIndentUnitComesBackSelectedAsItWas) {
    Code code(u"        |one");
    code.backspace();
    code.undo();
    EXPECT_EQ(code.marked(), u"       | |one");
    EXPECT_EQ(code.view->indentController().indentRangeInFrontOfLocation(12), std::nullopt);
    EXPECT_EQ(code.view->indentController().indentRangeInFrontOfLocation(-1), std::nullopt);
    EXPECT_EQ(code.view->indentController().indentRangeInFrontOfLocation(8), (TextRange{4, 4}));
}

} // namespace
