#include "Tessarine/layout/manager/TextGeometry.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/layout/manager/ContentSize.h"
#include "Tessarine/layout/manager/RowSearch.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr double leastGap = 0.01; // between two rows; less is rounding

}

TextGeometry::TextGeometry(const LayoutContext& context, const LayoutGeometry& geometry,
                           LineControllers& lineControllers, ContentSize& contentSize)
    : m_context(context)
    , m_geometry(geometry)
    , m_lineControllers(lineControllers)
    , m_contentSize(contentSize) {}

Rect TextGeometry::caretRect(std::int64_t location) {
    const auto at = rangeInText({location, 0}, *m_context.document.stringView).location;
    DocumentLineNode& line = m_context.document.lineManager->lineContaining(at);
    const Rect caret = controllerOf(line).caretRect(at - line.location());
    return caret.offsetBy(m_geometry.leadingLineSpacing(), m_geometry.topOf(line));
}

Rect TextGeometry::firstRect(const TextRange& range) {
    if (range.location < 0 || range.location > m_context.document.stringView->length())
        fatalError("Cannot find first rect.");
    DocumentLineNode& line = m_context.document.lineManager->lineContaining(range.location);
    const std::int64_t start = range.location - line.location();
    const std::int64_t length = std::clamp<std::int64_t>(range.length, 0, line.value() - start);
    Rect rect = controllerOf(line).firstRect({start, length});
    rect.width = std::min(rect.width, m_context.viewport.width);
    return rect.offsetBy(m_geometry.leadingLineSpacing(), m_geometry.topOf(line));
}

LineController& TextGeometry::controllerOf(DocumentLineNode& line) {
    return m_lineControllers.controllerOf(line, m_geometry.constrainingLineWidth());
}

// A place behind a row's text belongs to the row's end, but never to what is behind the line's break.
std::int64_t TextGeometry::closestIndex(const Point& point) {
    const LineManager& lineManager = *m_context.document.lineManager;
    DocumentLineNode* const found = lineManager.lineContainingYOffset(m_geometry.lineY(point.y));
    DocumentLineNode& line = found ? *found : lineManager.documentLineTree().lastNode();
    const Point inLine{point.x - m_geometry.leadingLineSpacing(), point.y - m_geometry.topOf(line)};
    const std::int64_t index = controllerOf(line).closestIndex(inLine);
    return line.location() + std::clamp<std::int64_t>(index, 0, line.data().length());
}

// A place between two rows is the start of the second here, unlike where a caret shows.
Rect TextGeometry::startRect(std::int64_t location) {
    DocumentLineNode& line = m_context.document.lineManager->lineContaining(location);
    const std::int64_t inLine = location - line.location();
    const Rect caret = caretRect(location);
    const LineFragment* const row = rowOfUnit(controllerOf(line).lineFragments(), inLine);
    if (!row || row->range.location != inLine || row->index == 0) return caret;
    return {.x = m_geometry.leadingLineSpacing() + row->line->offsetForStringIndex(inLine),
            .y = m_geometry.topOf(line) + row->yPosition +
                 (row->scaledSize.height - row->baseSize.height) * 0.5,
            .width = caret.width,
            .height = row->baseSize.height};
}

// As high as the row in which the caret stands.
Rect TextGeometry::rowOf(const Rect& caret, double minX, double maxX) const {
    const double height = caret.height * m_context.lineHeightMultiplier;
    return {.x = minX,
            .y = caret.y - (height - caret.height) * 0.5,
            .width = std::max(0.0, maxX - minX),
            .height = height};
}

// The selection of a break reaches as far as there is room.
bool TextGeometry::reachesIntoBreak(std::int64_t location) const {
    const DocumentLineNode& line = m_context.document.lineManager->lineContaining(location);
    return location > line.location() + line.data().length();
}

std::vector<TextSelectionRect> TextGeometry::selectionRects(const TextRange& range) {
    const TextRange selected = rangeInText(range, *m_context.document.stringView);
    if (selected.length == 0) return {};
    const Rect start = startRect(selected.location);
    const Rect end = caretRect(selected.limit());
    const double minX = m_geometry.leadingLineSpacing();
    const double maxX = std::max(m_context.scrollViewWidth, m_contentSize.contentWidth()) -
                        m_context.textContainerInset.right;
    if (start.minY() == end.minY() && start.maxY() == end.maxY()) {
        const double rowEnd = reachesIntoBreak(selected.limit()) ? maxX : end.maxX();
        return {{rowOf(start, start.minX(), rowEnd), true, true}};
    }
    const Rect startRow = rowOf(start, start.minX(), maxX);
    const Rect endRow = rowOf(end, minX, end.minX());
    const Rect between = {.x = minX,
                          .y = startRow.maxY(),
                          .width = std::max(0.0, maxX - minX),
                          .height = endRow.minY() - startRow.maxY()};
    std::vector<TextSelectionRect> rects{{startRow, true, false}};
    if (between.height > leastGap) rects.push_back({between, false, false});
    rects.push_back({endRow, false, true});
    return rects;
}

} // namespace tessarine
