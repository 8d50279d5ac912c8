#pragma once

#include "Tessarine/document/DocumentLineNodeData.h"
#include "Tessarine/document/RedBlackTreeChildrenUpdater.h"

namespace tessarine {

// Keeps the heights and byte counts of lines summed up.
class DocumentLineChildrenUpdater final : public RedBlackTreeChildrenUpdater<DocumentLineNode> {
public:
    bool refreshAggregates(DocumentLineNode& node) override;
};

} // namespace tessarine
