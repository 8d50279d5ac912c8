#include "Tessarine/editing/tests/EditedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;

namespace {

struct CharacterPairsTest : ::testing::Test {
    static EditedText& withPairs(EditedText& text) {
        text.setPairs({{u"(", u")"}, {u"\"", u"\""}, {u"{%", u"%}"}, {u"\U0001F600", u"\U0001F601"}});
        return text;
    }

    static std::u16string typed(std::u16string marked, std::u16string_view typedText) {
        EditedText text(std::move(marked));
        withPairs(text).view->insertText(typedText);
        EXPECT_EQ(lineFault(text.view->document()), std::nullopt);
        return text.marked();
    }

    static std::u16string deleted(std::u16string marked) {
        EditedText text(std::move(marked));
        withPairs(text).view->characterPairs().setTrailingComponentDeletionMode(
            CharacterPairTrailingComponentDeletionMode::immediatelyFollowingLeadingComponent);
        text.backspace();
        return text.marked();
    }
};

TEST_F(CharacterPairsTest, ALeadingComponentBringsItsTrailingOne) {
    EXPECT_EQ(typed(u"a|b", u"("), u"a(|)b");
    EXPECT_EQ(typed(u"a|b", u"{%"), u"a{%|%}b");
    EXPECT_EQ(typed(u"a|", u"\""), u"a\"|\"");
    EXPECT_EQ(typed(u"a|b", u"["), u"a[|b");
}

TEST_F(CharacterPairsTest, ASelectionIsPutBetweenThemAndStaysSelected) {
    EXPECT_EQ(typed(u"a|bcd|e", u"("), u"a(|bcd|)e");
    EXPECT_EQ(typed(u"|bcd|", u"{%"), u"{%|bcd|%}");
    EXPECT_EQ(typed(u"|b\rc|", u"\""), u"\"|b\nc|\"");
}

TEST_F(CharacterPairsTest, ATrailingComponentThatIsThereIsSkipped) {
    EXPECT_EQ(typed(u"(|)", u")"), u"()|");
    EXPECT_EQ(typed(u"\"|\"", u"\""), u"\"\"|");
    EXPECT_EQ(typed(u"{%|%}", u"%}"), u"{%%}|");
    EXPECT_EQ(typed(u"(|", u")"), u"()|");
    EXPECT_EQ(typed(u"|%", u"%}"), u"%}|%");
}

// Counted in characters where code units would be right.
TEST_F(CharacterPairsTest, ComponentsOutsideOfTheBasicPlaneMoveTheCaretByOne) {
    EXPECT_EQ(typed(u"|", u"\U0001F600"), u"\xD83D|\xDE00\U0001F601");
    EXPECT_EQ(typed(u"|\U0001F601", u"\U0001F601"), u"\U0001F601|\U0001F601");
}

TEST_F(CharacterPairsTest, TheTrailingComponentGoesWithTheLeadingOne) {
    EXPECT_EQ(deleted(u"a(|)b"), u"a|b");
    EXPECT_EQ(deleted(u"a(|b)"), u"a|b)");
    EXPECT_EQ(deleted(u"a(|"), u"a|");
    EXPECT_EQ(deleted(u"|{%|%}"), u"|");
    EXPECT_EQ(deleted(u"\U0001F600|\U0001F601"), u"|");
    EXPECT_EQ(deleted(u"|({%|%}"), u"|%}");
    EditedText text(u"(|)");
    withPairs(text).backspace();
    EXPECT_EQ(text.marked(), u"|)");
}

TEST_F(CharacterPairsTest, TheLongestLeadingComponentIsKnown) {
    EditedText text;
    EXPECT_EQ(text.view->characterPairs().maximumLeadingComponentLength(), 0);
    EXPECT_EQ(withPairs(text).view->characterPairs().maximumLeadingComponentLength(), 2);
    text.setPairs({});
    EXPECT_EQ(text.view->characterPairs().maximumLeadingComponentLength(), 0);
}

TEST_F(CharacterPairsTest, EmbeddingCodeMayRefuse) {
    EditedText text(u"(|)");
    withPairs(text);
    text.delegate->allowsPairs = false;
    text.delegate->allowsSkips = false;
    text.view->insertText(u")");
    text.view->insertText(u"(");
    EXPECT_EQ(text.marked(), u"()(|)");
    text.delegate->allowsPairs = true;
    text.delegate->allowsChange = false;
    text.view->insertText(u"(");
    EXPECT_EQ(text.delegate->askedText, u"()");
    text.select(0, 2);
    text.view->insertText(u"(");
    EXPECT_EQ(text.delegate->askedText, u"(())");
    EXPECT_EQ(text.marked(), u"|()|()");
}

TEST_F(CharacterPairsTest, PairsAreUndoneAndRedoneWithTheirSelections) {
    for (const auto* marked : {u"a|b", u"a|bcd|e"}) {
        EditedText text(marked);
        withPairs(text).view->insertText(u"(");
        const std::u16string after = text.marked();
        text.undo();
        EXPECT_EQ(text.marked(), marked);
        text.redo();
        EXPECT_EQ(text.marked(), after);
    }
}

TEST_F(CharacterPairsTest, PairsWithAnEmptyComponentAreNone) {
    EditedText text(u"a|b");
    text.setPairs({{u"", u""}, {u"x", u""}, {u"", u"y"}});
    for (const auto* typedText : {u"x", u"y", u""})
        text.view->insertText(typedText);
    text.backspace();
    EXPECT_EQ(text.marked(), u"ax|b");
}

TEST_F(CharacterPairsTest, WithoutASelectionOnlyTheTextGoesIn) {
    EditedText text(u"a)");
    withPairs(text);
    text.view->setMarkedRange(TextRange{1, 0});
    text.view->insertText(u")");
    EXPECT_EQ(text.marked(), u"a)|)");
}

} // namespace
