#pragma once

#include "Tessarine/document/TextBranch.h"
#include "Tessarine/document/TextChunk.h"
#include "Tessarine/document/TextStoreLimits.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace tessarine {

// The operations on trees of chunks that keep them balanced. All children of a branch have one height; every
// chunk and branch but the root holds what the limits ask for. Trees come in by value: a part with one owner
// is reused, a shared one is copied. Recursion goes as deep as the tree is high.
class TextBalance {
public:
    explicit TextBalance(TextStoreLimits limits)
        : m_limits(limits) {}

    // The text of both, in O(difference of heights).
    TextNodeRef join(TextNodeRef left, TextNodeRef right) const;

    // [0, position) and the rest, in O(log n). Requires 0 <= position <= length.
    std::pair<TextNodeRef, TextNodeRef> split(TextNodeRef tree, std::int64_t position) const;

    // A tree over parts of one height in their order, each filled as a part that is no root. O(parts).
    TextNodeRef build(std::vector<TextNodeRef> parts) const;

    // Replaces [position, position + length), which must lie in one chunk, by at most chunkUnits units.
    // O(log n).
    void replaceInChunk(TextNodeRef& tree, std::int64_t position, std::int64_t length,
                        std::span<const char16_t> units) const;

    // Stops the program if anything above is not so.
    void check(const TextNodeRef& tree) const;

private:
    // One or two nodes of one height.
    struct Nodes {
        TextNodeRef first;
        TextNodeRef second;
    };

    TextNodeRef rootOf(Nodes nodes) const;
    Nodes joinNodes(TextNodeRef left, TextNodeRef right) const;
    Nodes joinChunks(TextNodeRef left, TextNodeRef right) const;
    Nodes joinBranches(TextNodeRef left, TextNodeRef right) const;
    Nodes splitIfTooLarge(TextNodeRef branch) const;
    TextNodeRef replaceBelow(TextNodeRef& node, std::int64_t position, std::int64_t length,
                             std::span<const char16_t> units) const;
    void mend(TextBranch& parent, std::int32_t index) const;
    bool isTooSmall(const TextNode& node) const;
    void checkNode(const TextNode& node, bool isRoot) const;

    TextStoreLimits m_limits;
};

} // namespace tessarine
