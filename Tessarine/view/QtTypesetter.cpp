#include "Tessarine/view/QtTypesetter.h"

#include "Tessarine/view/FittingUnits.h"
#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/QtTextLine.h"

#include <algorithm>
#include <utility>

namespace tessarine {

namespace {

constexpr std::int64_t longestRow = 16'384;
// A break so near to the end of what was shaped may depend on what comes behind that.
constexpr std::int64_t context = 32;
// How far the direction of a string is looked for.
constexpr std::int64_t directionUnits = 256;

} // namespace

QtTypesetter::QtTypesetter(std::shared_ptr<const AttributedString> string, std::shared_ptr<RowStyles> styles,
                           std::shared_ptr<RowLayouts> layouts)
    : m_string(std::move(string))
    , m_styles(std::move(styles))
    , m_layouts(std::move(layouts)) {}

std::int64_t QtTypesetter::suggestLineBreak(std::int64_t start, double width) {
    const std::int64_t most = std::min(m_string->length() - start, longestRow);
    for (double units = guessedUnits(start, width);; units *= 2) {
        const std::int64_t length = std::min(most, static_cast<std::int64_t>(units));
        RowText row = rowOf({.location = start, .length = length});
        const std::int64_t fitting = fittingUnits(row, width);
        if (fitting + context > length && length < most) continue;
        remember(start, std::move(row));
        return fitting;
    }
}

std::shared_ptr<const TextLine> QtTypesetter::createLine(const TextRange& range) {
    const bool isMeasured =
        m_measured && m_measuredStart == range.location && range.length <= m_measured->text.size();
    RowText row = isMeasured ? m_measured->prefix(static_cast<int>(range.length)) : rowOf(range);
    return std::make_shared<const QtTextLine>(std::move(row), range.location, m_layouts);
}

void QtTypesetter::remember(std::int64_t start, RowText row) {
    m_measuredStart = start;
    m_measured.reset();
    if (row.isEven()) m_measured = std::move(row);
}

RowText QtTypesetter::rowOf(const TextRange& range) {
    RowText row = RowText::of(*m_string, range, *m_styles);
    row.isRightToLeft = isRightToLeft();
    return row;
}

// Fixed-width letters are some six tenths of the size wide, most others less.
double QtTypesetter::guessedUnits(std::int64_t start, double width) const {
    const auto& font = m_string->runAt(start).attributes.font;
    const double size = std::max(font ? font->pointSize : 0, 10.0);
    return std::min(width / (0.5 * size) + 2 * context, static_cast<double>(longestRow));
}

bool QtTypesetter::isRightToLeft() {
    if (!m_isRightToLeft) {
        const std::int64_t length = std::min(m_string->length(), directionUnits);
        m_isRightToLeft = toQt(m_string->substring({.location = 0, .length = length})).isRightToLeft();
    }
    return *m_isRightToLeft;
}

} // namespace tessarine
