#pragma once

#include "Tessarine/editing/tests/FakeTimerScheduler.h"
#include "Tessarine/editing/tests/MarkedText.h"
#include "Tessarine/layout/manager/tests/ReckonedMeasurer.h"
#include "Tessarine/layout/tests/FixedAdvanceShaper.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"
#include "Tessarine/textview/TextView.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tessarine {

// Lays out when it is asked to and the test says so, and writes down the rest.
class RecordingHost final : public TextViewHost {
public:
    void textViewNeedsLayout() override { ++layoutRequests; }

    void textViewDidScroll() override { ++scrolls; }

    void textViewDidMoveCaret() override { ++caretMoves; }

    void textViewDidReplace(const TextRange& range, std::u16string_view oldText,
                            std::u16string_view newText) override {
        replacements.push_back({range, std::u16string(oldText) + u">" + std::u16string(newText)});
    }

    void textViewDidReplaceAll() override { ++exchanges; }

    void textViewDidChangeEditing() override { ++editingChanges; }

    int layoutRequests = 0;
    int scrolls = 0;
    int caretMoves = 0;
    int exchanges = 0;
    int editingChanges = 0;
    std::vector<std::pair<TextRange, std::u16string>> replacements;
};

// A text view of ten columns and ten rows (characters are 10 wide and rows 11 high) with a host. Texts show
// the selection by two bars, or one where it is empty.
class ShownText {
public:
    explicit ShownText(std::u16string marked = u"|", const Size& size = {.width = 100, .height = 110}) {
        const auto [text, selection] = MarkedText::parse(std::move(marked));
        view->setHost(host);
        view->setSize(size);
        view->setState(TextViewState(TextStore(text), std::make_shared<DefaultTheme>(), *measurer));
        if (selection) view->movement().select(selection->location, selection->limit());
        view->layoutIfNeeded();
    }

    std::u16string text() const { return view->text(); }

    std::u16string marked() const { return MarkedText{text(), view->selectedRange()}.drawn(); }

    // What the text shows after a movement.
    std::u16string after(CaretMovement movement, SelectionMode mode = SelectionMode::move) {
        view->moveCaret(movement, mode);
        view->layoutIfNeeded();
        return marked();
    }

    std::u16string afterDeleting(TextDeletion deletion) {
        view->deleteText(deletion);
        view->layoutIfNeeded();
        return marked();
    }

    double offset() const { return view->scrollView()->contentOffset().y; }

    std::shared_ptr<FakeTimerScheduler> clock = std::make_shared<FakeTimerScheduler>();
    std::shared_ptr<QueuedExecutor> executor = std::make_shared<QueuedExecutor>();
    std::shared_ptr<ReckonedMeasurer> measurer = std::make_shared<ReckonedMeasurer>();
    std::shared_ptr<RecordingHost> host = std::make_shared<RecordingHost>();
    std::shared_ptr<TextView> view =
        TextView::create({std::make_shared<FixedAdvanceShaper>(), measurer, clock, executor});
};

} // namespace tessarine
