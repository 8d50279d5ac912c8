#pragma once

#include "Tessarine/document/TextNode.h"

#include <array>
#include <cstdint>

namespace tessarine {

// An inner node of a text's tree: children of one height, with their lengths beside them, so that a search
// reads one node a level. Changes require a single owner.
class TextBranch final : public TextNode {
public:
    static constexpr std::int32_t mostChildren = 32;

    explicit TextBranch(int height)
        : TextNode(height) {}

    std::int32_t count() const { return m_count; }

    const TextNode& child(std::int32_t index) const { return *m_children[index]; }

    std::int64_t childLength(std::int32_t index) const { return m_lengths[index]; }

    // The child that holds `position`, which becomes relative to that child. Requires position < length().
    std::int32_t childAt(std::int64_t& position) const {
        std::int32_t index = 0;
        while (position >= m_lengths[index])
            position -= m_lengths[index++];
        return index;
    }

    // The same for an insertion: at a border it goes to the end of the left child. Requires
    // position <= length().
    std::int32_t childForInsertion(std::int64_t& position) const {
        std::int32_t index = 0;
        while (position > m_lengths[index])
            position -= m_lengths[index++];
        return index;
    }

    // For a change in place of the child, which changedChild must follow.
    TextNodeRef& childForChange(std::int32_t index) { return m_children[index]; }

    void changedChild(std::int32_t index);

    // One child more than mostChildren has room, until the branch is split.
    void insert(std::int32_t index, TextNodeRef child);
    TextNodeRef take(std::int32_t index);

    // Moves the children [first, count()) of `from` to the end of this one.
    void appendFrom(TextBranch& from, std::int32_t first);

    void append(TextNodeRef child) { insert(m_count, std::move(child)); }

private:
    std::int32_t m_count = 0;
    std::array<std::int64_t, mostChildren + 1> m_lengths{};
    std::array<TextNodeRef, mostChildren + 1> m_children;
};

} // namespace tessarine
