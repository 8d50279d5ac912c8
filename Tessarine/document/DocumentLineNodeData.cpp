#include "Tessarine/document/DocumentLineNodeData.h"

namespace tessarine {

double DocumentLineNodeData::yPosition() const {
    return node().sumBefore(
        0.0, [](const DocumentLineNode& subtree) { return subtree.data().m_totalLineHeight; },
        [](const DocumentLineNode& line) { return line.data().m_lineHeight; });
}

ByteCount DocumentLineNodeData::startByte() const {
    return ByteCount::ofCodeUnits(node().sumBefore(
        std::int64_t{0}, [](const DocumentLineNode& subtree) { return subtree.data().m_totalCountedUnits; },
        [](const DocumentLineNode& line) { return line.data().countedUnits(); }));
}

} // namespace tessarine
