#include "Tessarine/editing/IndentController.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace tessarine {

namespace {

std::int64_t lengthOf(const IndentStrategy& strategy) {
    return std::visit([](const auto& kind) { return kind.length; }, strategy.kind());
}

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

} // namespace

IndentController::IndentController(EditedDocument document, std::shared_ptr<const TextMeasurer> measurer,
                                   Font indentFont)
    : m_document(std::move(document))
    , m_measurer(std::move(measurer))
    , m_indentFont(std::move(indentFont)) {}

void IndentController::setIndentFont(Font font) {
    m_indentFont = std::move(font);
    m_tabWidth.reset();
}

void IndentController::setIndentStrategy(const IndentStrategy& strategy) {
    const std::int64_t length = std::max<std::int64_t>(lengthOf(strategy), 1);
    m_indentStrategy = std::holds_alternative<IndentStrategy::Tab>(strategy.kind())
                           ? IndentStrategy::tab(length)
                           : IndentStrategy::space(length);
    m_tabWidth.reset();
}

double IndentController::tabWidth() const {
    if (!m_tabWidth) {
        const std::u16string spaces(static_cast<std::size_t>(lengthOf(m_indentStrategy)), u' ');
        m_tabWidth = std::round(m_measurer->width(spaces, m_indentFont));
    }
    return *m_tabWidth;
}

void IndentController::insertLineBreak(TextRange range, LineEnding lineEndings) {
    const std::u16string lineBreak(symbol(lineEndings));
    const auto start = m_document.lineManager->linePosition(range.location);
    const auto end = m_document.lineManager->linePosition(range.limit());
    if (!start || !end) return replaceText(range, lineBreak);
    const auto [indentLevel, insertExtraLineBreak] =
        m_document.languageMode->strategyForInsertingLineBreak(*start, *end, m_indentStrategy);
    const std::u16string newLine = lineBreak + m_indentStrategy.string(indentLevel);
    if (!insertExtraLineBreak) return replaceText(range, newLine);
    replaceText(range, newLine + lineBreak + m_indentStrategy.string(indentLevel - 1));
    select({range.location + std::ssize(newLine), 0});
}

std::int64_t IndentController::startOfLineContent(const DocumentLineNode& line) const {
    std::int64_t at = line.location();
    const std::int64_t limit = std::min(at + line.data().length(), m_document.stringView->length());
    while (at < limit && isBlank(m_document.stringView->characterAt(at)))
        ++at;
    return at;
}

// Whoever hears of the edits may take later lines out of the document, or put another one in.
template <class Work>
void IndentController::forEachLine(TextRange range, Work work) {
    const auto lineManager = m_document.lineManager;
    std::vector<DocumentLineNodeReference> lines;
    for (DocumentLineNode* line : lineManager->linesInRange(range.location, range.length))
        lines.emplace_back(line);
    for (std::size_t i = 0; i < lines.size() && lineManager == m_document.lineManager; ++i)
        work(*lines[i], i == 0);
}

void IndentController::shiftRight(TextRange range) {
    TextRange selection = range;
    forEachLine(range, [&](const DocumentLineNode& line, bool isFirst) {
        (isFirst ? selection.location : selection.length) += indent(line);
    });
    select(selection);
}

std::int64_t IndentController::indent(const DocumentLineNode& line) {
    const std::int64_t oldLength = line.value();
    replaceText({startOfLineContent(line), 0}, m_indentStrategy.string(1));
    return line.value() - oldLength;
}

void IndentController::shiftLeft(TextRange range) {
    TextRange selection = range;
    forEachLine(range, [&](const DocumentLineNode& line, bool isFirst) {
        const std::int64_t lineStart = line.location();
        const std::int64_t delta = unindent(line);
        if (isFirst) {
            const std::int64_t location = selection.location + delta;
            selection.location = std::max(location, lineStart);
            selection.length -= selection.location - location;
        } else {
            selection.length += delta;
        }
    });
    select({selection.location, std::max<std::int64_t>(selection.length, 0)});
}

// 0, or less.
std::int64_t IndentController::unindent(const DocumentLineNode& line) {
    const std::u16string unit = m_indentStrategy.string(1);
    const TextRange range{line.location(), std::ssize(unit)};
    const std::int64_t oldLength = line.value();
    if (line.data().length() < range.length || range.limit() > m_document.stringView->length() ||
        m_document.stringView->substring(range.location, range.length) != unit)
        return 0;
    replaceText(range, u"");
    return line.value() - oldLength;
}

// The level counts a tab as all the columns that it spans, so an indent of tabs may seem longer than it is.
std::optional<TextRange> IndentController::indentRangeInFrontOfLocation(std::int64_t location) const {
    if (location < 0 || location > m_document.stringView->length()) return std::nullopt;
    const DocumentLineNode& line = m_document.lineManager->lineContaining(location);
    const std::int64_t tabLength = m_indentStrategy.tabLength();
    const std::int64_t localLocation = location - line.location();
    if (localLocation < tabLength || localLocation % tabLength != 0) return std::nullopt;
    const std::int64_t level = m_document.languageMode->currentIndentLevel(line, m_indentStrategy);
    if (localLocation > tabLength * level) return std::nullopt;
    const TextRange range{location - tabLength, tabLength};
    if (!hasBlanksOnly(range)) return std::nullopt;
    return range;
}

bool IndentController::hasBlanksOnly(TextRange range) const {
    return std::ranges::all_of(m_document.stringView->substring(range.location, range.length), isBlank);
}

void IndentController::replaceText(TextRange range, std::u16string_view text) const {
    if (const auto delegate = m_delegate.lock()) delegate->indentControllerReplaceText(range, text);
}

void IndentController::select(TextRange range) const {
    if (const auto delegate = m_delegate.lock()) delegate->indentControllerSelect(range);
}

} // namespace tessarine
