#include "Tessarine/layout/manager/tests/LaidOutText.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace tessarine {

namespace {

constexpr double rounding = 1e-6;

template <class Queue>
std::optional<std::string> poolFault(const Queue& queue, const View& container) {
    std::set<const View*> views;
    for (const auto& [key, view] : queue.visibleViews()) {
        if (!views.insert(view.get()).second) return "a view shows twice";
        if (view->superview().get() != &container) return "a view that shows is not in its container";
    }
    if (views.size() != container.subviews().size()) return "a view is in the container that shows nothing";
    return std::nullopt;
}

} // namespace

LaidOutText::LaidOutText(std::u16string_view text, const Size& size, double estimatedHeight) {
    measurer->estimatedHeight = estimatedHeight;
    manager->setDelegate(delegate);
    manager->setViews(scrollView, *textView);
    view->setState(TextViewState(TextStore(text), std::make_shared<DefaultTheme>(), *measurer));
    resize(size);
}

void LaidOutText::scrollTo(double y) {
    scrollView->setContentOffset({.y = y});
    applyBounds();
}

void LaidOutText::resize(const Size& size) {
    scrollView->setFrame({.width = size.width, .height = size.height});
    manager->setScrollViewWidth(size.width);
    applyBounds();
}

void LaidOutText::applyBounds() {
    manager->setViewport(scrollView->bounds());
    manager->layoutIfNeeded();
}

void LaidOutText::edit(const TextRange& range, std::u16string_view text) {
    view->replaceCharacters(range, text, std::nullopt, "");
    manager->layoutIfNeeded();
}

std::vector<ShownRow> LaidOutText::shownRows() const {
    std::vector<ShownRow> rows;
    for (const auto& [id, row] : manager->rows().views().visibleViews())
        rows.push_back({row->frame().offsetBy(0, -offset()), row->renderer()->lineFragment()->range});
    std::ranges::sort(rows, {}, [](const ShownRow& row) { return row.frame.y; });
    return rows;
}

std::vector<std::u16string> LaidOutText::shownNumbers() const {
    std::vector<std::pair<double, std::u16string>> numbers;
    for (const auto& [id, number] : manager->gutter().views().visibleViews())
        numbers.emplace_back(number->frame().y, number->titleLabel().text());
    std::ranges::sort(numbers);
    std::vector<std::u16string> texts;
    for (const auto& [y, text] : numbers)
        texts.push_back(text);
    return texts;
}

std::optional<std::string> LaidOutText::fault() const {
    if (const auto fault = poolFault(manager->rows().views(), *manager->rows().linesContainerView()))
        return "rows: " + *fault;
    if (const auto fault =
            poolFault(manager->gutter().views(), *manager->gutter().lineNumbersContainerView()))
        return "numbers: " + *fault;
    if (const auto fault = poolFault(manager->highlights().views(),
                                     *manager->highlights().highlightsContainerBackgroundView()))
        return "highlights: " + *fault;
    if (const auto fault = rowFault()) return fault;
    if (const auto fault = numberFault()) return fault;
    return heightFault();
}

// The rows fill the screen as far as there is text, each goes on where the one before ends, and each shows
// what stands at its height in the document.
std::optional<std::string> LaidOutText::rowFault() const {
    const auto rows = shownRows();
    const LayoutGeometry& geometry = manager->geometry();
    const DocumentLineNode& last = lines().documentLineTree().lastNode();
    const double end = geometry.topOf(last) + (last.value() == 0 ? 0 : last.data().lineHeight()) - offset();
    const double bottom = std::min(manager->context().viewport.height, end);
    double y = std::max(0.0, geometry.contentY(0) - offset());
    if (bottom <= y) return std::nullopt;
    if (rows.empty()) return "nothing shows";
    if (rows.front().frame.minY() > y + rounding) return "a gap at the top";
    if (rows.back().frame.maxY() < bottom - rounding) return "a gap at the bottom";
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Rect& frame = rows[i].frame;
        if (i > 0 && std::abs(frame.minY() - rows[i - 1].frame.maxY()) > rounding) return "rows do not meet";
        const double inText = geometry.lineY(frame.y + offset());
        const DocumentLineNode& line = *lines().lineContainingYOffset(inText + frame.height / 2);
        const bool startsLine = std::abs(line.data().yPosition() - inText) < rounding;
        if (startsLine != (rows[i].range.location == 0)) return "a row starts a line where none starts";
        if (i > 0 && !startsLine && rows[i].range.location != rows[i - 1].range.limit())
            return "text is missing between two rows";
        if (rows[i].range.limit() > line.value()) return "a row reaches beyond its line";
    }
    return std::nullopt;
}

std::optional<std::string> LaidOutText::numberFault() const {
    const auto numbers = shownNumbers();
    if (!manager->context().showLineNumbers)
        return numbers.empty() ? std::nullopt : std::optional("numbers show");
    if (numbers.size() != manager->visibleLineIDs().size()) return "not every line has its number";
    if (numbers.empty()) return std::nullopt;
    const double top = manager->geometry().lineY(offset());
    std::int64_t row = lines().lineContainingYOffset(top)->index();
    for (const auto& number : numbers) {
        const std::string expected = std::to_string(++row);
        if (number != std::u16string(expected.begin(), expected.end()))
            return "a wrong number, not " + expected;
    }
    return std::nullopt;
}

std::optional<std::string> LaidOutText::heightFault() const {
    double sum = manager->context().textContainerInset.top + manager->context().textContainerInset.bottom;
    for (std::int64_t row = 0; row < lines().lineCount(); ++row)
        sum += lines().lineAtRow(row).data().lineHeight();
    const double height = scrollView->contentSize().height;
    if (std::abs(height - std::trunc(sum)) > 1) return "the content is not as high as its lines";
    if (scrollView->contentSize() != manager->contentSize()) return "the scroll view has another size";
    return std::nullopt;
}

} // namespace tessarine
