#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/editing/CharacterPair.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tessarine {

// The pairs that an editor completes, and the questions that edits ask of them. Main thread.
class CharacterPairs {
public:
    using List = std::vector<std::shared_ptr<const CharacterPair>>;

    const List& list() const { return m_list; }

    void setList(List list);

    CharacterPairTrailingComponentDeletionMode trailingComponentDeletionMode() const {
        return m_trailingComponentDeletionMode;
    }

    void setTrailingComponentDeletionMode(CharacterPairTrailingComponentDeletionMode mode) {
        m_trailingComponentDeletionMode = mode;
    }

    // In code units; 0 without pairs.
    std::int64_t maximumLeadingComponentLength() const { return m_maximumLeadingComponentLength; }

    // The first of the list, or null.
    std::shared_ptr<const CharacterPair> withLeading(std::u16string_view text) const;
    std::shared_ptr<const CharacterPair> withTrailing(std::u16string_view text) const;

    // The range, and the trailing component behind it if the range holds the leading one and the mode wants
    // both gone. The range must lie in the text.
    TextRange grownByTrailingComponent(TextRange deletion, const StringView& text) const;

private:
    List m_list;
    CharacterPairTrailingComponentDeletionMode m_trailingComponentDeletionMode =
        CharacterPairTrailingComponentDeletionMode::disabled;
    std::int64_t m_maximumLeadingComponentLength = 0; // of the list
};

} // namespace tessarine
