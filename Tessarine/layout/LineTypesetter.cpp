#include "Tessarine/layout/LineTypesetter.h"

#include "Tessarine/layout/WordBoundary.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessarine {

namespace {

// How far back a row looks for the end of a word.
constexpr std::int64_t longestWord = 100;

bool isLeadingSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isTrailingSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

void LineTypesetter::reset() {
    begin(nullptr);
    removeFragments(0);
}

void LineTypesetter::prepareToTypeset(std::shared_ptr<const AttributedString> attributedString) {
    begin(std::move(attributedString));
}

TypesetResult LineTypesetter::typesetLineFragments(const Rect& rect) {
    return typeset([&] { return m_nextYPosition < rect.maxY(); }, 0);
}

TypesetResult LineTypesetter::typesetLineFragments(std::int64_t location,
                                                   std::int64_t additionalLineFragmentCount) {
    return typeset([&] { return m_startOffset < location; }, additionalLineFragmentCount);
}

template <class IsWanted>
TypesetResult LineTypesetter::typeset(IsWanted isWanted, std::int64_t additionalLineFragmentCount) {
    const std::int64_t first = lineFragmentIndex();
    double maximumLineWidth = 0;
    bool goesOn = m_constrainingWidth > 0 && (isWanted() || additionalLineFragmentCount > 0);
    while (goesOn && !isAtEnd()) {
        auto fragment = makeFragment();
        if (!fragment) break;
        maximumLineWidth = std::max(maximumLineWidth, fragment->scaledSize.width);
        append(std::move(fragment));
        goesOn = isWanted() || additionalLineFragmentCount-- > 0;
    }
    endIfAtEnd();
    return {.lineFragments = LineFragments(m_lineFragments.begin() + first, m_lineFragments.end()),
            .lineFragmentsMap = {m_lineID, first, lineFragmentIndex()},
            .maximumLineWidth = maximumLineWidth};
}

// Null if the shaper suggests a row of nothing, which would never end.
LineFragmentReference LineTypesetter::makeFragment() {
    std::int64_t length = lengthOfFragment();
    if (length < 1) return nullptr;
    LineFragment fragment = fragmentOf(length);
    for (const std::int64_t least = leastLength();
         fragment.scaledSize.width > m_constrainingWidth && length > least;)
        fragment = fragmentOf(--length);
    return std::make_shared<const LineFragment>(std::move(fragment));
}

std::int64_t LineTypesetter::lengthOfFragment() {
    const std::int64_t rest = m_stringLength - m_startOffset;
    const std::int64_t length =
        std::min(m_typesetter->suggestLineBreak(m_startOffset, m_constrainingWidth), rest);
    const bool endsWithWord = length < rest && m_lineBreakMode == LineBreakMode::byWordWrapping;
    return endsWithWord ? lengthByWords(length) : length;
}

std::int64_t LineTypesetter::lengthByWords(std::int64_t length) const {
    const auto isBoundary = [this](std::int64_t offset) {
        return isWordBoundary(m_attributedString->characterAt(m_startOffset + offset));
    };
    if (length < 1 || isBoundary(length - 1)) return length;
    for (std::int64_t back = 0; back < std::min(length, longestWord); ++back)
        if (isBoundary(length - back)) return length - back + 1;
    return length;
}

// A row never ends within its first character, as it would never get it on the screen.
std::int64_t LineTypesetter::leastLength() const {
    const std::int64_t next = m_startOffset + 1;
    const bool isPair = next < m_stringLength &&
                        isLeadingSurrogate(m_attributedString->characterAt(m_startOffset)) &&
                        isTrailingSurrogate(m_attributedString->characterAt(next));
    return isPair ? 2 : 1;
}

LineFragment LineTypesetter::fragmentOf(std::int64_t length) const {
    const TextRange range{.location = m_startOffset, .length = length};
    auto line = m_typesetter->createLine(range);
    const TypographicBounds bounds = line->typographicBounds();
    const Size baseSize{.width = bounds.width, .height = bounds.height()};
    return {
        .id = {.lineID = m_lineID, .index = lineFragmentIndex()},
        .index = lineFragmentIndex(),
        .range = range,
        .line = std::move(line),
        .descent = bounds.descent,
        .baseSize = baseSize,
        .scaledSize = {.width = baseSize.width, .height = baseSize.height * m_lineFragmentHeightMultiplier},
        .yPosition = m_nextYPosition};
}

std::int64_t LineTypesetter::continueWith(std::shared_ptr<const AttributedString> attributedString,
                                          std::int64_t unchangedLength) {
    removeFragments(firstFragmentToldBy(unchangedLength));
    begin(std::move(attributedString));
    return lineFragmentIndex();
}

LineTypesetter::ChangedFragments
LineTypesetter::typesetAgain(std::shared_ptr<const AttributedString> attributedString,
                             const TextRange& range) {
    const std::int64_t first = firstFragmentToldBy(range.location);
    const std::int64_t formerStart = m_startOffset;
    LineFragments former(std::make_move_iterator(m_lineFragments.begin() + first),
                         std::make_move_iterator(m_lineFragments.end()));
    removeFragments(first);
    begin(std::move(attributedString));
    // From one start on behind the change the rows are the same again.
    auto rest = former.begin();
    const auto meetsFormer = [&] {
        while (rest != former.end() && (*rest)->range.location < std::max(m_startOffset, range.limit()))
            ++rest;
        return rest != former.end() && (*rest)->range.location == m_startOffset;
    };
    while (m_startOffset < formerStart && !meetsFormer()) {
        auto fragment = makeFragment();
        if (!fragment) break;
        append(std::move(fragment));
    }
    const std::int64_t meeting = lineFragmentIndex();
    if (m_startOffset >= formerStart || !meetsFormer()) rest = former.end();
    const bool haveMoved =
        rest != former.end() && ((*rest)->index != meeting || (*rest)->yPosition != m_nextYPosition);
    for (; rest != former.end(); ++rest)
        appendMoved(std::move(*rest));
    endIfAtEnd();
    return {.first = first, .limit = haveMoved ? lineFragmentIndex() : meeting};
}

std::int64_t LineTypesetter::bestGuessNumberOfLineFragments() const {
    const std::int64_t count = lineFragmentIndex();
    if (count == 0 || isAtEnd()) return count;
    const double unitsInFragment = static_cast<double>(m_startOffset) / static_cast<double>(count);
    const auto rest = static_cast<double>(m_stringLength - m_startOffset);
    return static_cast<std::int64_t>(static_cast<double>(count) + rest / unitsInFragment);
}

// The row before the one that holds it, too: it ends where it does because of how the next begins.
std::int64_t LineTypesetter::firstFragmentToldBy(std::int64_t location) const {
    const auto holding =
        std::ranges::partition_point(m_lineFragments, [&](const LineFragmentReference& fragment) {
            return fragment->range.limit() <= location;
        });
    return std::max<std::int64_t>(holding - m_lineFragments.begin() - 1, 0);
}

void LineTypesetter::append(LineFragmentReference fragment) {
    m_startOffset = fragment->range.limit();
    m_nextYPosition += fragment->scaledSize.height;
    m_maximumLineWidths.push_back(std::max(maximumLineWidth(), fragment->scaledSize.width));
    m_lineFragments.push_back(std::move(fragment));
}

void LineTypesetter::appendMoved(LineFragmentReference fragment) {
    if (fragment->index == lineFragmentIndex() && fragment->yPosition == m_nextYPosition)
        return append(std::move(fragment));
    LineFragment moved = *fragment;
    moved.index = moved.id.index = lineFragmentIndex();
    moved.yPosition = m_nextYPosition;
    append(std::make_shared<const LineFragment>(std::move(moved)));
}

void LineTypesetter::removeFragments(std::int64_t first) {
    m_lineFragments.resize(static_cast<std::size_t>(first));
    m_maximumLineWidths.resize(static_cast<std::size_t>(first));
    m_startOffset = m_lineFragments.empty() ? 0 : m_lineFragments.back()->range.limit();
    m_nextYPosition = m_lineFragments.empty() ? 0 : m_lineFragments.back()->maxY();
}

void LineTypesetter::begin(std::shared_ptr<const AttributedString> attributedString) {
    m_attributedString = std::move(attributedString);
    m_stringLength = m_attributedString ? m_attributedString->length() : 0;
    m_typesetter = m_attributedString ? m_shaper->createTypesetter(m_attributedString) : nullptr;
}

void LineTypesetter::endIfAtEnd() {
    if (!isAtEnd()) return;
    m_attributedString = nullptr;
    m_typesetter = nullptr;
}

} // namespace tessarine
