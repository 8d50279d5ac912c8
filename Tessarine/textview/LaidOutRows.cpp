#include "Tessarine/textview/LaidOutRows.h"

#include "Tessarine/layout/manager/RowSearch.h"

#include <algorithm>

namespace tessarine {

namespace {

LineFragmentReference emptyRow() {
    static const auto row = std::make_shared<const LineFragment>();
    return row;
}

} // namespace

const LineFragments& LaidOutRows::allRows(DocumentLineNode& line) {
    LineController& controller = m_layoutManager.lineController(line);
    controller.prepareToDisplayString(LineController::ToLocation{line.value()}, true);
    return controller.lineFragments();
}

std::int64_t LaidOutRows::numberOfLineFragments(DocumentLineNode& line) {
    return std::max<std::int64_t>(1, std::ssize(allRows(line)));
}

LineFragmentReference LaidOutRows::lineFragmentAtIndex(std::int64_t index, DocumentLineNode& line) {
    const LineFragments& rows = allRows(line);
    return rows.empty() ? emptyRow() : rows[static_cast<std::size_t>(index)];
}

LineFragmentReference LaidOutRows::lineFragmentContaining(std::int64_t locationInLine,
                                                          DocumentLineNode& line) {
    const LineFragments& rows = allRows(line);
    if (rows.empty()) return emptyRow();
    const LineFragment* const row = rowOfUnit(rows, locationInLine);
    return row ? rows[static_cast<std::size_t>(row->index)] : rows.back();
}

} // namespace tessarine
