#include "Tessarine/layout/LineFragmentController.h"
#include "Tessarine/layout/LineTypesetter.h"
#include "Tessarine/layout/tests/FixedAdvanceShaper.h"
#include "Tessarine/layout/tests/FixedMeasurer.h"
#include "Tessarine/layout/tests/RecordingContext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct TextOfRow final : LineFragmentControllerDelegate {
    std::optional<std::u16string> string(const LineFragmentController& controller) override {
        ++asked;
        return text.substr(static_cast<std::size_t>(controller.lineFragment()->range.location),
                           static_cast<std::size_t>(controller.lineFragment()->range.length));
    }

    std::u16string text;
    int asked = 0;
};

struct LineFragmentRendererTest : ::testing::Test {
    // The second row of a text whose first row is "xxxxxxxx ".
    std::shared_ptr<LineFragmentController> row(std::u16string_view text, double multiplier = 1) {
        delegate->text = u"xxxxxxxx " + std::u16string(text);
        LineTypesetter typesetter{std::make_shared<FixedAdvanceShaper>()};
        typesetter.setConstrainingWidth(90);
        typesetter.setLineFragmentHeightMultiplier(multiplier);
        typesetter.prepareToTypeset(std::make_shared<AttributedString>(delegate->text));
        typesetter.typesetLineFragments(1'000, 0);
        auto controller = LineFragmentController::create(typesetter.lineFragments().at(1), delegate);
        controller->renderer().setInvisibleCharacterConfiguration(configuration);
        return controller;
    }

    std::vector<std::string> drawn(const LineFragmentController& controller) const {
        RecordingContext context;
        controller.renderer().draw(context);
        return context.calls;
    }

    // The symbols alone.
    std::vector<std::string> marks(std::u16string_view text) {
        auto calls = drawn(*row(text));
        std::erase_if(calls, [](const std::string& call) { return !call.starts_with("text"); });
        return calls;
    }

    LineFragmentRendererTest() {
        configuration->setTabSymbol(u">");
        configuration->setSpaceSymbol(u".");
        configuration->setNonBreakingSpaceSymbol(u"_");
        configuration->setLineBreakSymbol(u"LF");
        configuration->setSoftLineBreakSymbol(u"SOF");
        configuration->setFont(Font::system(8));
    }

    const std::shared_ptr<TextOfRow> delegate = std::make_shared<TextOfRow>();
    const std::shared_ptr<FixedMeasurer> measurer = std::make_shared<FixedMeasurer>();
    const std::shared_ptr<InvisibleCharacterConfiguration> configuration =
        std::make_shared<InvisibleCharacterConfiguration>(measurer);
};

TEST_F(LineFragmentRendererTest, CentresTextOnTheHeightOfTheRow) {
    EXPECT_THAT(drawn(*row(u"abc")), ElementsAre("save", "line 9+3 at 0 9", "restore"));
    EXPECT_THAT(drawn(*row(u"abc", 2)), ElementsAre("save", "line 9+3 at 0 14.5", "restore"));
    EXPECT_EQ(delegate->asked, 0);
}

TEST_F(LineFragmentRendererTest, DrawsMarkedTextBehindSymbolsBehindText) {
    configuration->setShowSpaces(true);
    const auto controller = row(u"ab cd", 2);
    controller->setMarkedRange(TextRange{10, 3});
    controller->setMarkedTextBackground(Color(RGBAColor::ofHex(0x010203)), 0);
    EXPECT_THAT(drawn(*controller),
                ElementsAre("save", "color 1 2 3", "rect (10 0 30 22)", "restore", "text . 8 (20 7 4 8)",
                            "save", "line 9+5 at 0 14.5", "restore"));
    controller->setMarkedTextBackground(Color(RGBAColor::ofHex(0x010203)), 4);
    EXPECT_EQ(drawn(*controller).at(2), "rounded (10 0 30 22) by 4");
}

TEST_F(LineFragmentRendererTest, MarksWhatNobodySees) {
    constexpr auto text = u"a \t\u00A0b\u2028\n";
    EXPECT_THAT(marks(text), IsEmpty());
    configuration->setShowNonBreakingSpaces(true);
    EXPECT_THAT(marks(text), IsEmpty());
    EXPECT_EQ(delegate->asked, 0);
    configuration->setShowTabs(true);
    EXPECT_THAT(marks(text), ElementsAre("text > 8 (20 1.5 4 8)", "text _ 8 (40 1.5 4 8)"));
    EXPECT_EQ(delegate->asked, 1);
    configuration->setShowTabs(false);
    configuration->setShowLineBreaks(true);
    configuration->setShowNonBreakingSpaces(false);
    EXPECT_THAT(marks(text), ElementsAre("text LF 8 (60 1.5 8 8)"));
    configuration->setShowSoftLineBreaks(true);
    EXPECT_THAT(marks(text), ElementsAre("text SOF 8 (60 1.5 12 8)", "text LF 8 (60 1.5 8 8)"));
    EXPECT_THAT(marks(u"a\r\n"), ElementsAre("text LF 8 (10 1.5 8 8)"));
    EXPECT_THAT(marks(u"a\r"), ElementsAre("text LF 8 (10 1.5 8 8)"));
    configuration->setShowSpaces(true);
    // A space that carries an accent is another character.
    EXPECT_THAT(marks(u"\U0001F600 b \u0301"), ElementsAre("text . 8 (20 1.5 4 8)"));
}

TEST_F(LineFragmentRendererTest, KnowsTheRoomForLineBreaks) {
    EXPECT_EQ(configuration->maximumLineBreakSymbolWidth(), 0);
    EXPECT_EQ(configuration->lineBreakSymbolSize(), Size());
    configuration->setShowLineBreaks(true);
    EXPECT_EQ(configuration->lineBreakSymbolSize(), (Size{8, 8}));
    EXPECT_EQ(configuration->maximumLineBreakSymbolWidth(), 8);
    configuration->setShowSoftLineBreaks(true);
    EXPECT_EQ(configuration->maximumLineBreakSymbolWidth(), 12);
    configuration->setShowLineBreaks(false);
    EXPECT_EQ(configuration->maximumLineBreakSymbolWidth(), 12);
    EXPECT_EQ(measurer->measured, 2);
    configuration->setFont(Font::system(10));
    EXPECT_EQ(configuration->softLineBreakSymbolSize(), (Size{15, 10}));
    configuration->setSoftLineBreakSymbol(u"S");
    EXPECT_EQ(configuration->softLineBreakSymbolSize(), (Size{5, 10}));
    EXPECT_EQ(measurer->measured, 4);
}

TEST_F(LineFragmentRendererTest, IsShownByOneViewAtATime) {
    const auto first = row(u"abc");
    const auto second = row(u"def");
    const auto view = std::make_shared<LineFragmentView>();
    view->didDisplay();
    first->setLineFragmentView(view);
    EXPECT_TRUE(view->isRenderInvalid());
    EXPECT_TRUE(view->needsDisplay());
    view->didDisplay();
    EXPECT_FALSE(view->isRenderInvalid());
    first->setLineFragmentView(view);
    EXPECT_FALSE(view->needsDisplay());
    first->setLineFragment(std::make_shared<const LineFragment>(*first->lineFragment()));
    EXPECT_TRUE(view->needsDisplay());
    view->prepareForReuse();
    second->setLineFragmentView(view);
    view->didDisplay();
    // The view has another row now.
    first->setMarkedRange(TextRange{9, 1});
    EXPECT_FALSE(first->isShown());
    EXPECT_FALSE(view->needsDisplay());
    second->setMarkedRange(TextRange{9, 1});
    EXPECT_TRUE(view->needsDisplay());
    view->didDisplay();
    second->setMarkedRange(TextRange{9, 1});
    second->setMarkedTextBackground(second->renderer().markedTextBackgroundColor(), 0);
    EXPECT_FALSE(view->needsDisplay());
    RecordingContext context;
    view->draw(context);
    EXPECT_FALSE(context.calls.empty());
    view->prepareForReuse();
    context.calls.clear();
    view->draw(context);
    EXPECT_THAT(context.calls, IsEmpty());
}

} // namespace
