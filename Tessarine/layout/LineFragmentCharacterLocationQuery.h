#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/RedBlackTreeSearchQuery.h"
#include "Tessarine/layout/LineFragmentNodeData.h"

namespace tessarine {

// Finds the rows that hold a code unit of the range, which counts from the line's start.
class LineFragmentCharacterLocationQuery final
    : public RedBlackTreeSearchQuery<LineFragmentNodeID, std::int64_t, LineFragmentNodeData> {
public:
    explicit LineFragmentCharacterLocationQuery(const TextRange& textRange)
        : range(textRange) {}

    bool wantsLeftSubtree(const Node& node) override { return range.location < node.location(); }

    bool wantsRightSubtree(const Node& node) override {
        return node.location() + node.value() < range.limit();
    }

    bool matches(const Node& node) override {
        return node.location() < range.limit() && range.location < node.location() + node.value();
    }

    const TextRange range;
};

} // namespace tessarine
