#include "Tessarine/layout/manager/SelectedLines.h"

#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/RowSearch.h"

namespace tessarine {

namespace {

const LineFragment* typesetRow(const LineControllers& lineControllers, const DocumentLineNode& line,
                               std::int64_t location) {
    const LineController* const controller = lineControllers.existing(line.id());
    return controller ? rowAtCaret(controller->lineFragments(), location - line.location()) : nullptr;
}

} // namespace

SelectedLines SelectedLines::find(const LayoutContext& context, const LayoutGeometry& geometry,
                                  const LineControllers& lineControllers) {
    const auto type = context.lineSelectionDisplayType;
    if (!context.isEditing || !context.selectedRange || type == LineSelectionDisplayType::disabled) return {};
    const TextRange range = rangeInText(*context.selectedRange, *context.document.stringView);
    const LineManager& lineManager = *context.document.lineManager;
    const DocumentLineNode& first = lineManager.lineContaining(range.location);
    const DocumentLineNode& last = lineManager.lineContaining(range.limit());
    SelectedLines lines{.firstRow = first.index(),
                        .lastRow = last.index(),
                        .top = geometry.topOf(first),
                        .bottom = geometry.topOf(last) + last.data().lineHeight()};
    if (type == LineSelectionDisplayType::line) return lines;
    if (const auto* row = typesetRow(lineControllers, first, range.location)) lines.top += row->yPosition;
    if (const auto* row = typesetRow(lineControllers, last, range.limit()))
        lines.bottom = geometry.topOf(last) + row->maxY();
    return lines;
}

} // namespace tessarine
