#pragma once

#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/editing/tests/FakeTimerScheduler.h"
#include "Tessarine/layout/manager/LayoutManager.h"
#include "Tessarine/layout/manager/tests/ReckonedMeasurer.h"
#include "Tessarine/layout/tests/FixedAdvanceShaper.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessarine {

// Sets the size of the content, as a text view does, and counts.
class ObedientDelegate final : public LayoutManagerDelegate {
public:
    explicit ObedientDelegate(std::shared_ptr<ScrollView> scrollView)
        : m_scrollView(std::move(scrollView)) {}

    void layoutManagerDidChangeContentSize(const Size& size) override { m_scrollView->setContentSize(size); }

    void layoutManagerDidChangeGutterWidth() override { ++gutterWidths; }

    void layoutManagerNeedsLayout() override { ++requests; }

    int gutterWidths = 0;
    int requests = 0;

private:
    const std::shared_ptr<ScrollView> m_scrollView;
};

// A row as it shows: its place on the screen, and what part of its line it is.
struct ShownRow {
    Rect frame;
    TextRange range;

    friend bool operator==(const ShownRow&, const ShownRow&) = default;
};

// A document in a scroll view, laid out and edited on the road of real edits.
class LaidOutText {
public:
    explicit LaidOutText(std::u16string_view text, const Size& size = {.width = 100, .height = 110},
                         double estimatedHeight = 11);

    LayoutManager& layout() { return *manager; }

    LineManager& lines() const { return *view->document().lineManager; }

    void scrollTo(double y);
    void resize(const Size& size);
    void edit(const TextRange& range, std::u16string_view text);

    double offset() const { return scrollView->contentOffset().y; }

    // From the top.
    std::vector<ShownRow> shownRows() const;
    std::vector<std::u16string> shownNumbers() const;

    // What of the layout does not hold together, or nothing.
    std::optional<std::string> fault() const;

    const std::shared_ptr<FixedAdvanceShaper> shaper = std::make_shared<FixedAdvanceShaper>();
    const std::shared_ptr<ReckonedMeasurer> measurer = std::make_shared<ReckonedMeasurer>();
    const std::shared_ptr<ScrollView> scrollView = std::make_shared<ScrollView>();
    const std::shared_ptr<View> textView = std::make_shared<View>();
    const std::shared_ptr<ObedientDelegate> delegate = std::make_shared<ObedientDelegate>(scrollView);
    const std::shared_ptr<LayoutManager> manager = LayoutManager::create(shaper, measurer);
    const std::shared_ptr<TextInputView> view =
        TextInputView::create(manager, std::make_shared<FakeTimerScheduler>(), measurer);

private:
    void applyBounds();
    std::optional<std::string> rowFault() const;
    std::optional<std::string> numberFault() const;
    std::optional<std::string> heightFault() const;
};

} // namespace tessarine
