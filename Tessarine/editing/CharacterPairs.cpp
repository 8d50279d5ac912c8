#include "Tessarine/editing/CharacterPairs.h"

#include <algorithm>

namespace tessarine {

void CharacterPairs::setList(List list) {
    m_list = std::move(list);
    m_maximumLeadingComponentLength = 0;
    for (const auto& pair : m_list)
        m_maximumLeadingComponentLength =
            std::max<std::int64_t>(m_maximumLeadingComponentLength, std::ssize(pair->leading()));
}

std::shared_ptr<const CharacterPair> CharacterPairs::withLeading(std::u16string_view text) const {
    const auto found =
        std::ranges::find_if(m_list, [text](const auto& pair) { return pair->leading() == text; });
    return found == m_list.end() ? nullptr : *found;
}

std::shared_ptr<const CharacterPair> CharacterPairs::withTrailing(std::u16string_view text) const {
    const auto found =
        std::ranges::find_if(m_list, [text](const auto& pair) { return pair->trailing() == text; });
    return found == m_list.end() ? nullptr : *found;
}

TextRange CharacterPairs::grownByTrailingComponent(TextRange deletion, const StringView& text) const {
    if (m_trailingComponentDeletionMode == CharacterPairTrailingComponentDeletionMode::disabled ||
        deletion.length > m_maximumLeadingComponentLength)
        return deletion;
    const auto pair = withLeading(text.substring(deletion.location, deletion.length));
    if (!pair) return deletion;
    const std::u16string trailing = pair->trailing();
    const std::int64_t behind =
        std::min<std::int64_t>(std::ssize(trailing), text.length() - deletion.limit());
    if (text.substring(deletion.limit(), behind) == trailing) deletion.length += behind;
    return deletion;
}

} // namespace tessarine
