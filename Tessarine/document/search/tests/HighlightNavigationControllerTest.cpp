#include "Tessarine/document/search/HighlightNavigationController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using testing::ElementsAre;
using Loop = HighlightNavigationStep::Loop;

namespace {

class Navigated final : public HighlightNavigationControllerDelegate {
public:
    void didNavigate(const HighlightNavigationStep& step) override { steps.push_back(step); }

    std::vector<HighlightNavigationStep> steps;
};

class HighlightNavigation : public testing::Test {
protected:
    void show(std::initializer_list<TextRange> ranges) {
        HighlightNavigationController::Ranges highlighted;
        for (const TextRange range : ranges)
            highlighted.push_back(std::make_shared<HighlightedRange>(HighlightedRange{.range = range}));
        controller.setHighlightedRanges(highlighted);
    }

    HighlightNavigationController controller;
};

TEST_F(HighlightNavigation, StepsBeginAtTheEndsWithoutASelection) {
    EXPECT_EQ(controller.selectNext(), std::nullopt);
    EXPECT_EQ(controller.selectPrevious(), std::nullopt);
    show({{2, 2}, {6, 2}});
    EXPECT_EQ(controller.selectNext(), (HighlightNavigationStep{{2, 2}, Loop::none}));
    controller.setSelectedRange(std::nullopt);
    EXPECT_EQ(controller.selectPrevious(), (HighlightNavigationStep{{6, 2}, Loop::none}));
}

TEST_F(HighlightNavigation, StepsGoToWhatLiesBeforeAndBehindTheSelection) {
    show({{0, 2}, {2, 2}, {5, 3}, {8, 1}});
    controller.setSelectedRange(TextRange{2, 2});
    EXPECT_EQ(controller.selectNext()->range, (TextRange{5, 3}));
    EXPECT_EQ(controller.selectNext()->range, (TextRange{8, 1}));
    EXPECT_EQ(controller.selectNext(), std::nullopt);
    controller.setSelectedRange(TextRange{6, 0}); // inside of one
    EXPECT_EQ(controller.selectPrevious()->range, (TextRange{2, 2}));
    controller.setSelectedRange(TextRange{6, 0});
    EXPECT_EQ(controller.selectNext()->range, (TextRange{8, 1}));
    controller.setSelectedRange(TextRange{0, 1});
    EXPECT_EQ(controller.selectPrevious(), std::nullopt);
    EXPECT_EQ(controller.selectedRange(), (TextRange{0, 1}));
}

TEST_F(HighlightNavigation, LoopsAreTold) {
    const auto delegate = std::make_shared<Navigated>();
    controller.setDelegate(delegate);
    controller.setLoopRanges(true);
    show({{2, 2}, {6, 2}});
    controller.selectRange(1);
    controller.selectNext();
    controller.selectPrevious();
    EXPECT_THAT(delegate->steps, ElementsAre(HighlightNavigationStep{{6, 2}, Loop::none},
                                             HighlightNavigationStep{{2, 2}, Loop::toFirst},
                                             HighlightNavigationStep{{6, 2}, Loop::toLast}));
}

TEST_F(HighlightNavigation, AnIndexOutsideOfTheListIsAFault) {
    EXPECT_DEATH(controller.selectRange(0), "at index 0. There are 0 highlighted ranges");
    show({{2, 2}});
    EXPECT_DEATH(controller.selectRange(-1), "at index -1. There is 1 highlighted range\n");
}

} // namespace
