// The stages in which a line is prepared, and the way of the highlighting that comes later.

#include "Tessarine/layout/LineController.h"
#include "Tessarine/syntax/highlighting/PlainTextSyntaxHighlighter.h"

#include <algorithm>
#include <unicode/utf16.h>
#include <utility>

namespace tessarine {

namespace {

// Halves of a character would look like two.
TextRange withWholeCharacters(const TextRange& range, const AttributedString& string) {
    const auto isHalfAt = [&](std::int64_t at) {
        return at > 0 && at < string.length() && U16_IS_TRAIL(string.characterAt(at)) &&
               U16_IS_LEAD(string.characterAt(at - 1));
    };
    const std::int64_t start = range.location - (isHalfAt(range.location) ? 1 : 0);
    const std::int64_t limit = range.limit() + (isHalfAt(range.limit()) ? 1 : 0);
    return {.location = start, .length = limit - start};
}

// Also of the characters that stand half in it; all of a row whose places do not tell what stands there.
TextRange shownPart(const LineFragment& row, const LineController::TypesetAmount& amount) {
    const auto* inRect = std::get_if<LineController::InRect>(&amount);
    if (!inRect || inRect->rect.width <= 0 || !row.line->runsFromLeftToRight()) return row.range;
    const std::int64_t first = row.line->stringIndexForPosition(inRect->rect.minX()) - 1;
    const std::int64_t last = row.line->stringIndexForPosition(inRect->rect.maxX()) + 1;
    const std::int64_t start = std::clamp(first, row.range.location, row.range.limit() - 1);
    return {.location = start, .length = std::clamp(last, start + 1, row.range.limit()) - start};
}

} // namespace

void LineController::prepareToDisplayString(const TypesetAmount& amount, bool syntaxHighlightAsynchronously) {
    clearLineFragmentControllersIfNeeded();
    updateString();
    updateDefaultAttributes();
    updateSyntaxHighlighting(syntaxHighlightAsynchronously);
    const bool makesRowsAgain = m_isTypesetterInvalid;
    updateTypesetter();
    typeset(amount);
    if (isLong()) highlightWhatShows(amount, syntaxHighlightAsynchronously);
    if (makesRowsAgain) updateLineFragmentControllers();
}

void LineController::clearLineFragmentControllersIfNeeded() {
    if (std::exchange(m_isLineFragmentCacheInvalid, false)) m_lineFragmentControllers.clear();
}

void LineController::updateString() {
    if (!std::exchange(m_isStringInvalid, false)) return;
    const auto formerString = std::exchange(m_attributedString, currentString());
    m_lengthOfKeptText = lengthOfKeptText(formerString.get());
    m_isDefaultAttributesInvalid = true;
    m_isSyntaxHighlightingInvalid = true;
    m_isTypesetterInvalid = true;
}

std::shared_ptr<AttributedString> LineController::currentString() const {
    const TextRange range{.location = m_line->location(), .length = m_line->data().totalLength()};
    if (range.length == 0 || range.limit() > m_stringView->length()) return nullptr;
    if (range.length > longLineLength)
        return std::make_shared<AttributedString>(m_stringView->snapshot(), range);
    return std::make_shared<AttributedString>(m_stringView->substring(range.location, range.length));
}

// Rows of a long line are as good as before in front of where the text has changed, if nothing else has.
std::optional<std::int64_t> LineController::lengthOfKeptText(const AttributedString* formerString) const {
    if (!isLong() || !formerString || m_isDefaultAttributesInvalid || m_isTypesetterInvalid)
        return std::nullopt;
    return formerString->commonPrefixLength(*m_attributedString);
}

void LineController::updateDefaultAttributes() {
    if (!std::exchange(m_isDefaultAttributesInvalid, false)) return;
    if (m_attributedString) setDefaultAttributes(*m_attributedString);
    m_isSyntaxHighlightingInvalid = true;
    m_isTypesetterInvalid = true;
}

void LineController::setDefaultAttributes(AttributedString& string) {
    syntaxHighlighter().setDefaultAttributes(string);
    string.addAttributes({.defaultTabInterval = m_tabWidth}, {.location = 0, .length = string.length()});
}

void LineController::updateSyntaxHighlighting(bool asynchronously) {
    if (!m_isSyntaxHighlightingInvalid) return;
    m_highlightedWindows.clear();
    if (!m_attributedString || isLong() || !syntaxHighlighter().canHighlight()) {
        m_isSyntaxHighlightingInvalid = false;
        return;
    }
    const TextRange whole{.location = 0, .length = m_attributedString->length()};
    if (!asynchronously || !isAwaiting(whole)) highlight(whole, asynchronously);
}

void LineController::updateTypesetter() {
    if (!std::exchange(m_isTypesetterInvalid, false)) return;
    m_lineHeight.reset();
    if (const auto unchangedLength = std::exchange(m_lengthOfKeptText, std::nullopt))
        return m_lineFragmentTree.keepFirst(m_typesetter.continueWith(m_attributedString, *unchangedLength));
    m_lineFragmentTree.reset();
    m_typesetter.reset();
    if (m_attributedString) m_typesetter.prepareToTypeset(m_attributedString);
}

void LineController::typeset(const TypesetAmount& amount) {
    if (const auto* inRect = std::get_if<InRect>(&amount))
        enter(m_typesetter.typesetLineFragments(inRect->rect));
    else
        enter(m_typesetter.typesetLineFragments(std::get<ToLocation>(amount).location, 1));
}

void LineController::enter(const TypesetResult& result) {
    if (result.lineFragments.empty()) return;
    m_lineFragmentTree.enter(result.lineFragments);
    m_lineHeight.reset();
}

// The delegate's, or one that knows nothing of syntax.
LineSyntaxHighlighter& LineController::syntaxHighlighter() {
    if (m_cachedSyntaxHighlighter) return *m_cachedSyntaxHighlighter;
    if (const auto delegate = m_delegate.lock()) {
        m_cachedSyntaxHighlighter = delegate->lineSyntaxHighlighter(*this);
    } else {
        m_cachedSyntaxHighlighter = std::make_shared<PlainTextSyntaxHighlighter>();
        m_cachedSyntaxHighlighter->setTheme(m_theme);
        m_cachedSyntaxHighlighter->setKern(m_kern);
    }
    return *m_cachedSyntaxHighlighter;
}

// What is on its way would land on another text or tell an older syntax.
void LineController::cancelSyntaxHighlighting() {
    m_awaitedHighlight.reset();
    if (m_cachedSyntaxHighlighter) m_cachedSyntaxHighlighter->cancel();
}

// A string of its own with the default attributes: the line's has the colours of before, some of which may
// have nothing in their place.
LineSyntaxHighlighterInput LineController::highlighterInput(const TextRange& range) {
    const auto string = std::make_shared<AttributedString>(m_attributedString->part(range));
    setDefaultAttributes(*string);
    return {.attributedString = string,
            .byteRange = {ByteCount::ofCodeUnits(m_line->location() + range.location),
                          ByteCount::ofCodeUnits(range.length)}};
}

void LineController::highlight(const TextRange& range, bool asynchronously) {
    LineSyntaxHighlighterInput input = highlighterInput(range);
    cancelSyntaxHighlighting();
    if (asynchronously) return highlightLater(range, std::move(input));
    syntaxHighlighter().syntaxHighlight(input);
    didHighlight(range, input.attributedString);
}

void LineController::highlightLater(const TextRange& range, LineSyntaxHighlighterInput input) {
    const auto string = input.attributedString;
    m_awaitedHighlight = {range, string};
    syntaxHighlighter().syntaxHighlight(std::move(input), [controller = weak_from_this(), range, string](
                                                              const LineSyntaxHighlighter::Result& result) {
        const auto living = controller.lock();
        if (!living) return;
        auto& awaited = living->m_awaitedHighlight;
        if (awaited && awaited->string == string) awaited.reset();
        if (result) living->didHighlightInBackground(range, string);
    });
}

// Whatever makes colours stale has called them off.
bool LineController::isAwaiting(const TextRange& range) const {
    return m_awaitedHighlight && m_awaitedHighlight->covers(range);
}

void LineController::didHighlight(const TextRange& range,
                                  const std::shared_ptr<AttributedString>& highlighted) {
    if (isLong()) {
        takeHighlighted(range, *highlighted);
        return typesetAgain(range);
    }
    m_attributedString = highlighted;
    m_isSyntaxHighlightingInvalid = false;
    m_isTypesetterInvalid = true;
}

void LineController::didHighlightInBackground(const TextRange& range,
                                              const std::shared_ptr<AttributedString>& highlighted) {
    const auto formerWidth = static_cast<std::int64_t>(maximumLineWidth());
    const double formerHeight = lineHeight();
    didHighlight(range, highlighted);
    redisplay();
    const bool isAsBefore =
        static_cast<std::int64_t>(maximumLineWidth()) == formerWidth && lineHeight() == formerHeight;
    if (isAsBefore) return;
    if (const auto delegate = m_delegate.lock()) delegate->lineControllerDidChangeHeight(*this);
}

// The rows that there were.
void LineController::redisplay() {
    const std::int64_t startOffset = m_typesetter.startOffset();
    m_lineHeight.reset();
    updateTypesetter();
    enter(m_typesetter.typesetLineFragments(startOffset, 0));
    updateLineFragmentControllers();
    for (const auto& [id, controller] : m_lineFragmentControllers)
        controller->setNeedsDisplay();
}

// Each turn that highlights something may move rows, so that others show; each adds windows, so there is an
// end to it. In the background it is all in one.
void LineController::highlightWhatShows(const TypesetAmount& amount, bool asynchronously) {
    if (!syntaxHighlighter().canHighlight()) return;
    for (;;) {
        const auto parts = partsWithoutColors(amount);
        if (parts.empty()) return;
        const TextRange all = {.location = parts.front().location,
                               .length = parts.back().limit() - parts.front().location};
        if (asynchronously) {
            if (!isAwaiting(all)) highlight(all, true);
            return;
        }
        cancelSyntaxHighlighting();
        for (const TextRange& part : parts)
            highlightPart(part);
        typesetAgain(all);
        typeset(amount);
    }
}

void LineController::highlightPart(const TextRange& range) {
    const LineSyntaxHighlighterInput input = highlighterInput(range);
    syntaxHighlighter().syntaxHighlight(input);
    takeHighlighted(range, *input.attributedString);
}

void LineController::takeHighlighted(const TextRange& range, const AttributedString& highlighted) {
    m_attributedString->copyAttributes(highlighted, range.location);
    m_highlightedWindows.add(range, m_attributedString->length());
}

// In their order, each of whole windows, with a gap between any two.
std::vector<TextRange> LineController::partsWithoutColors(const TypesetAmount& amount) const {
    std::vector<TextRange> parts;
    for (const LineFragmentReference& row : rowsOf(amount)) {
        const auto part = m_highlightedWindows.missing(shownPart(*row, amount), m_attributedString->length());
        if (!part) continue;
        const TextRange whole = withWholeCharacters(*part, *m_attributedString);
        if (!parts.empty() && whole.location <= parts.back().limit())
            parts.back().length = std::max(parts.back().limit(), whole.limit()) - parts.back().location;
        else
            parts.push_back(whole);
    }
    return parts;
}

// Of those that have been made.
std::span<const LineFragmentReference> LineController::rowsOf(const TypesetAmount& amount) const {
    const auto isAbove = [&](const LineFragmentReference& fragment) {
        const auto* inRect = std::get_if<InRect>(&amount);
        return inRect ? fragment->maxY() <= inRect->rect.minY()
                      : fragment->range.limit() < std::get<ToLocation>(amount).location;
    };
    const auto isNotBelow = [&](const LineFragmentReference& fragment) {
        const auto* inRect = std::get_if<InRect>(&amount);
        return inRect ? fragment->yPosition < inRect->rect.maxY()
                      : fragment->range.location <= std::get<ToLocation>(amount).location;
    };
    const auto first = std::ranges::partition_point(lineFragments(), isAbove);
    const auto limit = std::ranges::partition_point(lineFragments(), isNotBelow);
    return {first, std::max(first, limit)};
}

// Of a long line, whose attributes have changed there.
void LineController::typesetAgain(const TextRange& range) {
    const auto changed = m_typesetter.typesetAgain(m_attributedString, range);
    m_lineFragmentTree.enter(std::span(lineFragments())
                                 .subspan(static_cast<std::size_t>(changed.first),
                                          static_cast<std::size_t>(changed.limit - changed.first)));
    m_lineFragmentTree.keepFirst(m_typesetter.lineFragmentIndex());
    m_lineHeight.reset();
    updateLineFragmentControllers();
}

} // namespace tessarine
