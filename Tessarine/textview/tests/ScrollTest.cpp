#include "Tessarine/syntax/PlainTextLanguageMode.h"
#include "Tessarine/textview/ScrollArea.h"
#include "Tessarine/textview/tests/ShownText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;

namespace {

std::u16string lines(int count) {
    std::u16string text;
    for (int i = 1; i < count; ++i)
        text += u"ab\n";
    return text + u"ab";
}

const View& selectionViews(const TextView& view) {
    return *view.scrollView()->subviews().front()->subviews()[3];
}

// That of the caret, in the content.
std::optional<Rect> shownCaret(const TextView& view) {
    const View& caret = *view.scrollView()->subviews().front()->subviews()[5]->subviews().front();
    return caret.isHidden() ? std::nullopt : std::optional(caret.frame());
}

std::vector<Rect> shownSelection(const TextView& view) {
    std::vector<Rect> rects;
    for (const auto& rect : selectionViews(view).subviews())
        if (!rect->isHidden()) rects.push_back(rect->frame());
    return rects;
}

TEST(ScrollArea, BringsIntoViewWhatCanBe) {
    ScrollView view;
    view.setFrame({.width = 100, .height = 100});
    view.setContentSize({300, 400});
    view.setContentInset({.top = 5, .bottom = 20});
    EXPECT_EQ(minimumContentOffset(view), (Point{0, -5}));
    EXPECT_EQ(maximumContentOffset(view), (Point{200, 320}));
    const auto showing = [&](const Rect& rect, const EdgeInsets& margin = {}) {
        return contentOffsetShowing(view, rect, margin);
    };
    EXPECT_EQ(showing({10, 70, 2, 10}), (Point{0, 0}));
    EXPECT_EQ(showing({10, 75, 2, 10}), (Point{0, 5}));
    EXPECT_EQ(showing({10, 75, 2, 10}, {.bottom = 10}), (Point{0, 15}));
    EXPECT_EQ(showing({150, 399, 2, 10}), (Point{52, 320}));
    EXPECT_EQ(showing({0, 50, 500, 500}), (Point{0, 45}));
    view.setContentOffset({100, 100});
    EXPECT_EQ(showing({0, 0, 2, 10}, {.left = 30}), (Point{0, -5}));
    EXPECT_EQ(contentOffsetInRange(view, {-9, 999}), (Point{0, 320}));
    view.setContentSize({});
    EXPECT_EQ(maximumContentOffset(view), (Point{0, -5}));
}

TEST(TextViewScrolling, TheCaretStaysInViewUnlessThatIsSwitchedOff) {
    ShownText text(u"|" + lines(40));
    text.after(CaretMovement::documentEnd);
    EXPECT_EQ(text.offset(), 40 * 11 - 110);
    text.view->insertText(u"\nx");
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.offset(), 41 * 11 - 110);
    text.after(CaretMovement::documentStart);
    EXPECT_EQ(text.offset(), 0);
    text.view->setAutomaticScrollEnabled(false);
    text.after(CaretMovement::documentEnd);
    EXPECT_EQ(text.offset(), 0);
    text.view->scrollRangeToVisible({60, 0});
    EXPECT_EQ(text.offset(), 21 * 11 - 110);
}

TEST(TextViewScrolling, TheHeadOfASelectionIsFollowed) {
    ShownText text(u"|" + lines(40));
    for (int i = 0; i < 20; ++i)
        text.after(CaretMovement::down, SelectionMode::extend);
    EXPECT_EQ(text.offset(), 21 * 11 - 110);
    text.view->movement().selectAll();
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.offset(), 21 * 11 - 110);
}

TEST(TextViewScrolling, TheCaretKeepsClearOfMarginsAndKeyboard) {
    ShownText text(u"|" + lines(40));
    text.view->setAutomaticScrollInset({.bottom = 30});
    text.view->setSelectedRange(TextRange{9 * 3, 0});
    EXPECT_EQ(text.offset(), 10 * 11 - 110 + 30);
    text.view->beginEditing();
    text.view->keyboardObserver().setKeyboardHeight(20);
    EXPECT_TRUE(text.view->keyboardObserver().isKeyboardVisible());
    EXPECT_EQ(text.offset(), 10 * 11 - 110 + 50);
    EXPECT_EQ(text.view->maximumContentOffset().y, 40 * 11 - 110 + 20);
    text.view->setContentOffset({0, 9999});
    text.view->keyboardObserver().setKeyboardHeight(-1);
    text.view->layoutIfNeeded();
    EXPECT_LE(text.offset(), text.view->maximumContentOffset().y);
    EXPECT_EQ(text.view->maximumContentOffset().y, 40 * 11 - 110);
}

TEST(TextViewScrolling, OverscrollIsAPartOfTheViewsSize) {
    ShownText text(lines(20));
    text.view->setVerticalOverscrollFactor(0.5);
    text.view->setHorizontalOverscrollFactor(2);
    EXPECT_EQ(text.view->scrollView()->contentSize(), (Size{300, 220 + 55}));
    text.view->insertText(u"x");
    text.view->setSelectedRange(TextRange{});
    text.view->insertText(u"\n");
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.view->scrollView()->contentSize(), (Size{300, 231 + 55}));
    text.view->setSize({50, 100});
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.view->scrollView()->contentSize(), (Size{150, 231 + 50}));
    text.view->setVerticalOverscrollFactor(-1);
    EXPECT_EQ(text.view->scrollView()->contentSize().height, 231);
}

TEST(TextViewScrolling, AShorterContentTakesTheOffsetAlong) {
    ShownText text(u"|" + lines(40));
    text.after(CaretMovement::documentEnd);
    text.view->setAutomaticScrollEnabled(false);
    text.view->replace({0, 90}, u"");
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.offset(), 0);
    text.view->setContentOffset({50, 50});
    EXPECT_EQ(text.view->scrollView()->contentOffset(), (Point{0, 0}));
}

TEST(TextViewScrolling, SafeAreasNarrowTheText) {
    ShownText text(u"0123456789|");
    EXPECT_EQ(text.view->caretRect()->y, 0);
    text.view->setSafeAreaInsets({.top = 7, .left = 25, .right = 25});
    text.view->layoutIfNeeded();
    EXPECT_EQ(text.view->scrollView()->contentOffset(), (Point{-25, -7}));
    EXPECT_EQ(text.view->caretRect()->y, 11);
    EXPECT_EQ(text.view->contentPoint({25, 7}), (Point{0, 0}));
}

// Lines that have not been on screen are higher than they are reckoned with.
TEST(TextViewScrolling, WhatIsFarAwayIsFoundThoughNothingWasMeasured) {
    std::u16string text;
    for (int i = 0; i < 200; ++i)
        text += u"0123456789 0123456789 0123456789\n";
    ShownText shown(u"|" + text);
    for (const std::int64_t row : {150, 20, 199, 80}) {
        shown.view->goToLine(row, GoToLineSelection::end);
        shown.view->layoutIfNeeded();
        const Rect caret = *shown.view->caretRect();
        EXPECT_GE(caret.minY(), shown.offset()) << "row " << row;
        EXPECT_LE(caret.maxY(), shown.offset() + 110) << "row " << row;
    }
}

TEST(TextViewLayout, CaretAndSelectionAreViews) {
    ShownText text(u"ab|cd\nefgh\nij");
    EXPECT_EQ(shownCaret(*text.view), std::nullopt);
    text.view->beginEditing();
    text.view->layoutIfNeeded();
    EXPECT_EQ(shownCaret(*text.view), (Rect{20, 0, 2, 11}));
    text.view->setCaretShown(false);
    text.view->layoutIfNeeded();
    EXPECT_EQ(shownCaret(*text.view), std::nullopt);
    text.view->setCaretShown(true);
    text.view->setSelectedRange(TextRange{1, 10});
    text.view->layoutIfNeeded();
    EXPECT_EQ(shownCaret(*text.view), std::nullopt);
    EXPECT_EQ(shownSelection(*text.view).size(), 3U);
    const Color color(RGBAColor::ofHex(0x123456));
    text.view->setSelectionHighlightColor(color);
    EXPECT_EQ(selectionViews(*text.view).subviews().front()->backgroundColor(), color);
    text.view->endEditing();
    text.view->setSelectedRange(TextRange{1, 2});
    text.view->layoutIfNeeded();
    EXPECT_THAT(shownSelection(*text.view), testing::ElementsAre(Rect{10, 0, 20, 11}));
}

TEST(TextViewLayout, ThePageGuideStandsBehindItsColumn) {
    ShownText text(u"ab");
    text.view->setShowPageGuide(true);
    text.view->setPageGuideColumn(4);
    text.view->setShowLineNumbers(true);
    text.view->layoutIfNeeded();
    const View& guide = *text.view->scrollView()->subviews().front()->subviews().front();
    EXPECT_FALSE(guide.isHidden());
    EXPECT_EQ(guide.frame(), (Rect{22 + 40, 0, 38, 110}));
    text.view->setPageGuideColumn(8);
    text.view->layoutIfNeeded();
    EXPECT_TRUE(guide.isHidden());
}

TEST(TextViewLayout, TheHostIsAskedForLayoutWhateverChanges) {
    ShownText text(u"|" + lines(30));
    TextView& view = *text.view;
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"size", [&] { view.setSize({90, 110}); }},
        {"offset", [&] { view.setContentOffset({0, 40}); }},
        {"selection", [&] { view.setSelectedRange(TextRange{0, 4}); }},
        {"text", [&] { view.insertText(u"x"); }},
        {"numbers", [&] { view.setShowLineNumbers(true); }},
        {"wrapping", [&] { view.setLineWrappingEnabled(false); }},
        {"grips", [&] { view.setSelectionBarColor(Color(RGBAColor::ofHex(0xFF0000))); }},
        {"breaks", [&] { view.setLineBreakMode(LineBreakMode::byCharWrapping); }},
        {"kern", [&] { view.setKern(1); }},
        {"height", [&] { view.setLineHeightMultiplier(1.5); }},
        {"inset", [&] { view.setTextContainerInset({3, 3, 3, 3}); }},
        {"theme", [&] { view.setTheme(std::make_shared<DefaultTheme>()); }},
        {"padding", [&] { view.setGutterLeadingPadding(9); }},
        {"more padding", [&] { view.setGutterTrailingPadding(9); }},
        {"indent", [&] { view.setIndentStrategy(IndentStrategy::space(8)); }},
        {"ranges", [&] { view.setHighlightedRanges({}); }},
        {"invisibles",
         [&] {
             view.changeInvisibleCharacterConfiguration(
                 [](InvisibleCharacterConfiguration& configuration) { configuration.setShowSpaces(true); });
         }},
        {"language", [&] { view.setLanguageMode(PlainTextLanguageMode()); }},
    };
    for (const auto& [name, change] : changes) {
        view.layoutIfNeeded();
        text.host->layoutRequests = 0;
        change();
        EXPECT_GT(text.host->layoutRequests, 0) << name;
    }
    EXPECT_GT(text.host->scrolls, 0);
    EXPECT_GT(text.host->caretMoves, 0);
}

} // namespace
