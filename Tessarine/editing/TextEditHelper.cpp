#include "Tessarine/editing/TextEditHelper.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/LineBreakScanner.h"

#include <span>

namespace tessarine {

TextEditResult TextEditHelper::replaceCharacters(const TextRange& range, std::u16string_view text) {
    const TextRange newRange{range.location, std::ssize(text)};
    const LinePosition oldEndLinePosition = linePosition(range.limit());
    const bool includesReturn = bringsLineFeedBehindReturn(range, text);
    m_stringView.replaceCharacters(range.location, range.length, text);
    LineChangeSet changes =
        includesReturn ? replaceInLines({range.location - 1, range.length + 1}, u"\r" + std::u16string(text))
                       : replaceInLines(range, text);
    return {.startByte = ByteCount::ofCodeUnits(range.location),
            .oldEndByteLength = ByteCount::ofCodeUnits(range.length),
            .newEndByteLength = ByteCount::ofCodeUnits(newRange.length),
            .oldEndLinePosition = oldEndLinePosition,
            .startLinePosition = linePosition(newRange.location),
            .newEndLinePosition = linePosition(newRange.limit()),
            .lineChangeSet = std::move(changes)};
}

// The line manager does not follow when an LF comes to stand behind a CR that is no part of the edit, so the
// CR is made a part of what it is told.
bool TextEditHelper::bringsLineFeedBehindReturn(const TextRange& range, std::u16string_view text) const {
    if (range.location == 0 || m_stringView.characterAt(range.location - 1) != u'\r') return false;
    if (!text.empty()) return text.front() == u'\n';
    return range.length > 0 && range.limit() < m_stringView.length() &&
           m_stringView.characterAt(range.limit()) == u'\n';
}

LineChangeSet TextEditHelper::replaceInLines(const TextRange& range, std::u16string_view text) {
    LineChangeSet changes = m_lineManager.removeCharacters(range.location, range.length);
    if (!text.empty()) changes.unionWith(m_lineManager.insertText(text, range.location));
    return changes;
}

LinePosition TextEditHelper::linePosition(std::int64_t location) const {
    const auto position = m_lineManager.linePosition(location);
    if (!position) fatalError("An edit lies outside of the document.");
    return *position;
}

TextStore TextEditHelper::applyBatchReplacements(const BatchReplaceSet& replacements) const {
    const std::int64_t length = m_stringView.length();
    const auto liesOutside = [length](const Replacement& replacement) {
        const auto& [location, replacedLength] = replacement.range;
        return location < 0 || replacedLength < 0 || location > length || replacedLength > length - location;
    };
    BatchReplaceSet valid = replacements;
    std::erase_if(valid.replacements, liesOutside);
    return tessarine::applyBatchReplacements(m_stringView.snapshot(), valid).text;
}

std::u16string TextEditHelper::withLineEndings(std::u16string_view text) const {
    const std::u16string_view own = symbol(m_lineEndings);
    std::u16string result;
    result.reserve(text.size());
    std::size_t taken = 0;
    const auto takeBreak = [&](const LineBreak& lineBreak) {
        const auto location = static_cast<std::size_t>(lineBreak.location);
        if (text[location] != u'\r' && text[location] != u'\n') return;
        result.append(text.substr(taken, location - taken)).append(own);
        taken = static_cast<std::size_t>(lineBreak.end());
    };
    LineBreakScanner scanner;
    scanner.scan(std::span<const char16_t>(text), takeBreak);
    scanner.finish(takeBreak);
    return result.append(text.substr(taken));
}

} // namespace tessarine
