#include "Tessarine/document/DocumentLineChildrenUpdater.h"

#include "Tessarine/document/CheckedArithmetic.h"

namespace tessarine {

bool DocumentLineChildrenUpdater::refreshAggregates(DocumentLineNode& node) {
    DocumentLineNodeData& line = node.data();
    double height = line.m_lineHeight;
    std::int64_t countedUnits = line.countedUnits();
    for (const DocumentLineNode* child : {node.left(), node.right()}) {
        if (!child) continue;
        height += child->data().m_totalLineHeight;
        countedUnits = checkedSum(countedUnits, child->data().m_totalCountedUnits);
    }
    if (height == line.m_totalLineHeight && countedUnits == line.m_totalCountedUnits) return false;
    line.m_totalLineHeight = height;
    line.m_totalCountedUnits = countedUnits;
    return true;
}

} // namespace tessarine
