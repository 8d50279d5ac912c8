#pragma once

#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/editing/tests/FakeTextMeasurer.h"
#include "Tessarine/editing/tests/FakeTimerScheduler.h"
#include "Tessarine/editing/tests/LineFault.h"
#include "Tessarine/editing/tests/MarkedText.h"
#include "Tessarine/theme/DefaultTheme.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

class SimpleCharacterPair final : public CharacterPair {
public:
    SimpleCharacterPair(std::u16string leading, std::u16string trailing)
        : m_leading(std::move(leading))
        , m_trailing(std::move(trailing)) {}

    std::u16string leading() const override { return m_leading; }

    std::u16string trailing() const override { return m_trailing; }

private:
    std::u16string m_leading;
    std::u16string m_trailing;
};

using CallLog = std::vector<std::string>;

class RecordingLayout final : public TextInputLayout {
public:
    explicit RecordingLayout(CallLog& calls)
        : m_calls(calls) {}

    void setDocument(const EditedDocument&) override { m_calls.push_back("document"); }

    void setTabWidth(double width) override {
        m_calls.push_back("tab width " + std::to_string(static_cast<int>(width)));
    }

    void invalidateContentSize() override { m_calls.push_back("invalidate content size"); }

    void removeLine(const DocumentLineNodeID&) override { m_calls.push_back("remove line"); }

    void removeAllLines() override { m_calls.push_back("remove all lines"); }

    void typesetLines(const LineSet& lines) override {
        m_calls.push_back("typeset " + std::to_string(lines.size()));
    }

    void lineCountDidChange() override { m_calls.push_back("line count"); }

    void setNeedsLayout() override { m_calls.push_back("needs layout"); }

    void layoutIfNeeded() override { m_calls.push_back("layout"); }

    Size contentSize() override { return size; }

    Size size;

private:
    CallLog& m_calls;
};

// Allows everything, unless it is told otherwise.
class RecordingDelegate final : public TextInputViewDelegate {
public:
    explicit RecordingDelegate(CallLog& calls)
        : m_calls(calls) {}

    bool textInputViewShouldChangeText(const TextRange& range, std::u16string_view text) override {
        m_calls.push_back("should change");
        askedRange = range;
        askedText = text;
        return allowsChange;
    }

    bool textInputViewShouldInsertCharacterPair(const CharacterPair&, const TextRange&) override {
        return allowsPairs;
    }

    bool textInputViewShouldSkipTrailingComponent(const CharacterPair&, const TextRange&) override {
        return allowsSkips;
    }

    void textInputViewScrollToVisible(std::int64_t location) override {
        m_calls.push_back("scroll to " + std::to_string(location));
    }

    void textInputViewDidReplace(const TextRange& range, std::u16string_view oldText,
                                 std::u16string_view newText) override {
        replacements.push_back({range, std::u16string(oldText) + u">" + std::u16string(newText)});
    }

    void textInputViewDidExchangeText() override { ++exchanges; }

    void textInputViewDidChange() override {
        m_calls.push_back("changed");
        if (const auto action = std::exchange(onChange, nullptr)) action();
    }

    void textInputViewDidChangeSelection() override { m_calls.push_back("selection"); }

    Size textInputViewContentSize() override { return {}; }

    void textInputViewNeedsContentSizeUpdate() override { m_calls.push_back("content size"); }

    bool allowsChange = true;
    bool allowsPairs = true;
    bool allowsSkips = true;
    TextRange askedRange;
    std::u16string askedText;
    std::vector<std::pair<TextRange, std::u16string>> replacements;
    int exchanges = 0;
    std::function<void()> onChange; // once

private:
    CallLog& m_calls;
};

class RecordingInput final : public TextInputDelegate {
public:
    explicit RecordingInput(CallLog& calls)
        : m_calls(calls) {}

    void selectionWillChange() override { m_calls.push_back("input: selection will"); }

    void selectionDidChange() override { m_calls.push_back("input: selection did"); }

    void textWillChange() override { m_calls.push_back("input: text will"); }

    void textDidChange() override { m_calls.push_back("input: text did"); }

    void selectionChanged() override { m_calls.push_back("input: selection changed"); }

private:
    CallLog& m_calls;
};

// A view with a document, on a layout, delegates and a clock of the test's own. Texts show the selection by
// two bars, or one where it is empty.
class EditedText {
public:
    explicit EditedText(std::u16string marked = u"|", const TreeSitterLanguageMode* languageMode = nullptr,
                        std::shared_ptr<MainExecutor> executor = nullptr) {
        const auto [text, selection] = MarkedText::parse(std::move(marked));
        const auto theme = std::make_shared<DefaultTheme>();
        view->setState(languageMode ? TextViewState(TextStore(text), theme, *measurer, *languageMode,
                                                    std::move(executor))
                                    : TextViewState(TextStore(text), theme, *measurer));
        if (selection) view->setSelectedRange(selection);
        view->setDelegate(delegate);
        view->setInputDelegate(input);
        calls.clear();
    }

    std::u16string text() const { return view->document().stringView->string(); }

    std::u16string marked() const { return MarkedText{text(), view->selectedRange()}.drawn(); }

    // As the key does it: with nothing selected the unit in front of the caret is.
    void backspace() {
        if (const auto caret = view->selectedRange(); caret && caret->length == 0 && caret->location > 0)
            view->setSelectedRange(TextRange{caret->location - 1, 1});
        view->deleteBackward();
    }

    void select(std::int64_t location, std::int64_t length = 0) {
        view->setSelectedRange(TextRange{location, length});
    }

    void setPairs(std::initializer_list<std::pair<const char16_t*, const char16_t*>> pairs) {
        CharacterPairs::List list;
        for (const auto& [leading, trailing] : pairs)
            list.push_back(std::make_shared<SimpleCharacterPair>(leading, trailing));
        view->characterPairs().setList(std::move(list));
    }

    void undo() { view->undoManager().undo(); }

    void redo() { view->undoManager().redo(); }

    CallLog calls;
    const std::shared_ptr<FakeTextMeasurer> measurer = std::make_shared<FakeTextMeasurer>();
    const std::shared_ptr<FakeTimerScheduler> clock = std::make_shared<FakeTimerScheduler>();
    const std::shared_ptr<RecordingLayout> layout = std::make_shared<RecordingLayout>(calls);
    const std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>(calls);
    const std::shared_ptr<RecordingInput> input = std::make_shared<RecordingInput>(calls);
    const std::shared_ptr<TextInputView> view = TextInputView::create(layout, clock, measurer);
};

} // namespace tessarine
