#include "Tessarine/editing/tests/LineFault.h"
#include "Tessarine/textview/tests/ShownText.h"

#include <gtest/gtest.h>

#include <random>

using namespace tessarine;

namespace {

constexpr std::u16string_view pieces[] = {u"a",
                                          u" ",
                                          u"\n",
                                          u"\r\n",
                                          u"\t",
                                          u"e\u0301",
                                          u"\U0001F1E9\U0001F1EA",
                                          u"\r",
                                          u"(",
                                          u"0123456789 word; more",
                                          u"\xD83D",
                                          u"\u0301",
                                          u""};

// A user who does anything at all.
class Script {
public:
    explicit Script(unsigned seed)
        : m_random(seed) {
        m_text.view->beginEditing();
        m_text.view->setShowLineNumbers(seed % 2 == 0);
        m_text.view->setLineWrappingEnabled(seed % 3 != 0);
        m_text.view->setLineSelectionDisplayType(LineSelectionDisplayType::lineFragment);
    }

    void step() {
        TextView& view = *m_text.view;
        switch (number(16)) {
        case 0:
            return view.moveSelectedLinesUp();
        case 1:
            return view.moveSelectedLinesDown();
        case 2:
            return view.undo();
        case 3:
            return view.redo();
        case 4:
            return view.movement().select(place(), place());
        case 5:
            return view.movement().extendByWordsTo(place());
        case 6:
            return view.setMarkedText(pieces[number(std::size(pieces))], {place(), place()});
        case 7:
            return view.deleteText(static_cast<TextDeletion>(number(6)));
        case 8:
            return view.moveText({place(), place()}, place());
        case 9:
            return view.replace({place(), place() / 4}, pieces[number(std::size(pieces))]);
        case 10:
            return view.setContentOffset({0, static_cast<double>(place())});
        case 11:
            return m_text.clock->advance(0.6);
        case 12:
        case 13:
            return view.insertText(pieces[number(std::size(pieces))]);
        default:
            return view.moveCaret(static_cast<CaretMovement>(number(12)),
                                  number(2) == 0 ? SelectionMode::move : SelectionMode::extend);
        }
    }

    std::optional<std::string> fault() const {
        TextView& view = *m_text.view;
        view.layoutIfNeeded();
        const std::int64_t length = view.document().stringView->length();
        const auto& selection = view.selectedRange();
        if (!selection) return "the selection is gone";
        if (selection->location < 0 || selection->length < 0 || selection->limit() > length)
            return "the selection lies outside";
        const std::int64_t head = view.movement().head();
        if (head != selection->location && head != selection->limit()) return "the head is no end";
        if (view.movement().anchor() + head != selection->location + selection->limit())
            return "the anchor is no end";
        const Point offset = view.scrollView()->contentOffset();
        if (offset.y < view.minimumContentOffset().y || offset.y > view.maximumContentOffset().y)
            return "scrolled beyond the content";
        view.caretRect();
        return lineFault(view.document());
    }

private:
    std::size_t number(std::size_t limit) { return m_random() % limit; }

    // Also outside of the text.
    std::int64_t place() {
        const auto length = static_cast<std::size_t>(m_text.view->document().stringView->length());
        return static_cast<std::int64_t>(number(length + 7)) - 3;
    }

    std::mt19937 m_random;
    ShownText m_text{u"|one two\n\tthree\r\n"};
};

TEST(RandomScript, KeepsTheSelectionInTheText) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        Script script(seed);
        for (int step = 0; step < 120; ++step) {
            script.step();
            const auto fault = script.fault();
            ASSERT_EQ(fault, std::nullopt) << *fault << ", seed " << seed << ", step " << step;
        }
    }
}

} // namespace
