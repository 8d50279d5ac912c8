#include "examples/editor/window/TakeChange.h"

#include "Tessarine/document/TextReplacement.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace tessarine::editor {

namespace {

struct Change {
    TextReplacement replacement;
    std::u16string text;
};

// From the first unit that differs to the last.
Change changeBetween(const TextSnapshot& before, const TextSnapshot& after) {
    const std::u16string former = before.substring(0, before.length());
    const std::u16string latter = after.substring(0, after.length());
    const auto start = std::ranges::mismatch(former, latter);
    const auto end = std::mismatch(former.rbegin(), std::make_reverse_iterator(start.in1), latter.rbegin(),
                                   std::make_reverse_iterator(start.in2));
    const std::int64_t location = start.in1 - former.begin();
    const std::u16string text(start.in2, end.second.base());
    return {{{location, end.first.base() - start.in1}, std::ssize(text)}, text};
}

} // namespace

void takeChange(TextView& view, const TextSnapshot& text) {
    const auto [replacement, newText] = changeBetween(view.document().stringView->snapshot(), text);
    if (replacement.range.length == 0 && newText.empty()) return;
    const Point offset = view.scrollView()->contentOffset();
    const std::int64_t top = view.closestIndex(offset);
    const double hidden = offset.y - view.caretRect(top).y; // of the row at the top
    const bool scrolls = view.isAutomaticScrollEnabled();
    view.setAutomaticScrollEnabled(false);
    view.takeChange(replacement.range, newText);
    view.setAutomaticScrollEnabled(scrolls);
    view.layoutIfNeeded();
    view.setContentOffset({offset.x, view.caretRect(replacement.movedLocation(top)).y + hidden});
}

} // namespace tessarine::editor
