#include "Tessarine/view/FittingUnits.h"

#include "Tessarine/view/RowLayout.h"

#include <algorithm>
#include <span>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

bool isRightToLeft(char32_t character) {
    switch (QChar::direction(character)) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
    case QChar::DirFSI:
        return true;
    default:
        return false;
    }
}

bool hasRightToLeft(const QString& text) {
    const std::span units(text.utf16(), static_cast<std::size_t>(text.size()));
    for (std::size_t at = 0; at < units.size();) {
        char32_t character = 0;
        U16_NEXT(units, at, units.size(), character);
        if (isRightToLeft(character)) return true;
    }
    return false;
}

// But for 0.
std::vector<int> boundariesOf(const RowLayout& layout, qsizetype length) {
    std::vector<int> boundaries;
    for (int at = 1; at <= length; ++at)
        if (layout.isBoundary(at)) boundaries.push_back(at);
    return boundaries;
}

template <class WidthOfPrefix>
int lastFitting(const std::vector<int>& boundaries, double width, WidthOfPrefix widthOfPrefix) {
    const auto fits = [&](int length) { return widthOfPrefix(length) <= width; };
    const auto tooLong = std::ranges::partition_point(boundaries, fits);
    return tooLong == boundaries.begin() ? boundaries.front() : *std::prev(tooLong);
}

} // namespace

int fittingUnits(const RowText& coloredRow, double width) {
    const RowText row = coloredRow.withRunsOfFaces();
    const RowLayout layout(row, UserInterfaceStyle::Light);
    const auto boundaries = boundariesOf(layout, row.text.size());
    if (hasRightToLeft(row.text))
        return lastFitting(boundaries, width, [&](int length) {
            return RowLayout(row.prefix(length), UserInterfaceStyle::Light).width();
        });
    return lastFitting(boundaries, width, [&](int length) { return layout.line().cursorToX(length); });
}

} // namespace tessarine
