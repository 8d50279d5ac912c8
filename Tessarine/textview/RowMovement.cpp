#include "Tessarine/textview/RowMovement.h"

#include "Tessarine/layout/manager/RowSearch.h"

#include <algorithm>
#include <cmath>

namespace tessarine {

std::int64_t RowMovement::above(std::int64_t location) {
    const Row row = rowAt(location);
    const double x = keptX(location);
    const auto target = rowAbove(row);
    const std::int64_t destination = target ? locationIn(*target, x) : 0;
    m_lastStep = Step{destination, target ? target->index() : 0, x};
    return destination;
}

std::int64_t RowMovement::below(std::int64_t location) {
    const Row row = rowAt(location);
    const double x = keptX(location);
    const auto target = rowBelow(row);
    const std::int64_t destination = target ? locationIn(*target, x) : document().stringView->length();
    m_lastStep = Step{destination, (target ? *target : row).index(), x};
    return destination;
}

std::int64_t RowMovement::pageAbove(std::int64_t location) {
    for (std::int64_t rest = rowsOfPage(); rest > 0 && location > 0; --rest)
        location = above(location);
    return location;
}

std::int64_t RowMovement::pageBelow(std::int64_t location) {
    for (std::int64_t rest = rowsOfPage(); rest > 0 && location < document().stringView->length(); --rest)
        location = below(location);
    return location;
}

std::int64_t RowMovement::rowsOfPage() {
    const LayoutContext& context = m_layoutManager.context();
    const double rowHeight = document().lineManager->estimatedLineHeight() * context.lineHeightMultiplier;
    const double rows = rowHeight > 0 ? std::floor(context.viewport.height / rowHeight) - 1 : 1;
    return static_cast<std::int64_t>(std::clamp(rows, 1.0, 10'000.0));
}

const LineFragments& RowMovement::rows(DocumentLineNode& line, std::int64_t toLocation) {
    LineController& controller = m_layoutManager.lineController(line);
    controller.prepareToDisplayString(LineController::ToLocation{toLocation}, true);
    return controller.lineFragments();
}

RowMovement::Row RowMovement::rowAt(std::int64_t location) {
    DocumentLineNode& line = document().lineManager->lineContaining(location);
    const std::int64_t inLine = location - line.location();
    const LineFragments& found = rows(line, inLine);
    if (found.empty()) return {&line, nullptr};
    if (const auto row = rowOfLastStep(location, found, inLine)) return {&line, *row};
    const LineFragment* const row = rowAtCaret(found, inLine);
    return {&line, row ? found[static_cast<std::size_t>(row->index)] : found.back()};
}

std::optional<LineFragmentReference>
RowMovement::rowOfLastStep(std::int64_t location, const LineFragments& rows, std::int64_t inLine) const {
    if (!m_lastStep || m_lastStep->location != location || m_lastStep->rowIndex >= std::ssize(rows))
        return std::nullopt;
    const auto& row = rows[static_cast<std::size_t>(m_lastStep->rowIndex)];
    if (inLine < row->range.location || inLine > row->range.limit()) return std::nullopt;
    return row;
}

RowMovement::Row RowMovement::firstRow(DocumentLineNode& line) {
    const LineFragments& found = rows(line, 0);
    return {&line, found.empty() ? nullptr : found.front()};
}

RowMovement::Row RowMovement::lastRow(DocumentLineNode& line) {
    const LineFragments& found = rows(line, line.value());
    return {&line, found.empty() ? nullptr : found.back()};
}

std::optional<RowMovement::Row> RowMovement::rowAbove(const Row& row) {
    if (row.index() > 0) return Row{row.line, rows(*row.line, 0)[static_cast<std::size_t>(row.index() - 1)]};
    const std::int64_t lineIndex = row.line->index();
    if (lineIndex == 0) return std::nullopt;
    return lastRow(document().lineManager->lineAtRow(lineIndex - 1));
}

std::optional<RowMovement::Row> RowMovement::rowBelow(const Row& row) {
    if (row.fragment && row.fragment->range.limit() < row.line->value()) {
        const LineFragments& found = rows(*row.line, row.fragment->range.limit());
        const auto below = static_cast<std::size_t>(row.index() + 1);
        if (below < found.size()) return Row{row.line, found[below]};
    }
    const std::int64_t lineIndex = row.line->index();
    if (lineIndex + 1 == document().lineManager->lineCount()) return std::nullopt;
    return firstRow(document().lineManager->lineAtRow(lineIndex + 1));
}

double RowMovement::keptX(std::int64_t location) {
    return m_lastStep && m_lastStep->location == location ? m_lastStep->x : caretRect(location).x;
}

// At the start of a character.
std::int64_t RowMovement::locationIn(const Row& row, double x) const {
    const std::int64_t start = row.line->location();
    if (!row.fragment) return start;
    const double inRow = x - m_layoutManager.geometry().leadingLineSpacing();
    const TextRange& range = row.fragment->range;
    const std::int64_t limit = std::min(range.limit(), row.line->data().length());
    const std::int64_t found = start + std::clamp(row.fragment->line->stringIndexForPosition(inRow),
                                                  std::min(range.location, limit), limit);
    const TextRange character = document().stringView->composedRange(found);
    return found < character.limit() ? character.location : found;
}

std::int64_t RowMovement::rowLimit(std::int64_t location) {
    const Row row = rowAt(location);
    const std::int64_t limit = row.fragment ? row.fragment->range.limit() : 0;
    return row.line->location() + std::min(limit, row.line->data().length());
}

Rect RowMovement::caretRect(std::int64_t location) {
    const Rect rect = m_layoutManager.caretRect(location);
    const Row row = rowAt(location);
    if (row.index() == 0) return rect;
    const LineFragment& fragment = *row.fragment;
    const LayoutGeometry& geometry = m_layoutManager.geometry();
    const double space = fragment.scaledSize.height - fragment.baseSize.height;
    return {.x = geometry.leadingLineSpacing() +
                 fragment.line->offsetForStringIndex(location - row.line->location()),
            .y = geometry.topOf(*row.line) + fragment.yPosition + space * 0.5,
            .width = rect.width,
            .height = fragment.baseSize.height};
}

} // namespace tessarine
