#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/document/DocumentLineNodeID.h"
#include "Tessarine/document/RedBlackTreeNode.h"

#include <cstdint>

namespace tessarine {

class DocumentLineNodeData;

// A line of a document: its value is the line's length in UTF-16 code units, delimiter included; its
// location is where the line starts, its index the row.
using DocumentLineNode = RedBlackTreeNode<DocumentLineNodeID, std::int64_t, DocumentLineNodeData>;
using DocumentLineNodeReference = RedBlackTreeNodeReference<DocumentLineNode>;

// What a line knows beside its length. Lives inside its node, and what the node knows is not stored twice:
// totalLength() and node() need the data to be in one.
// Units: lengths in UTF-16 code units, byte counts of that form, heights in points.
class DocumentLineNodeData {
public:
    explicit DocumentLineNodeData(double lineHeight)
        : m_lineHeight(lineHeight)
        , m_totalLineHeight(lineHeight) {}

    // The code units of the line break at the line's end: 0, 1 or 2.
    int delimiterLength() const { return m_delimiterLength; }

    void setDelimiterLength(int length) { m_delimiterLength = static_cast<std::int8_t>(length); }

    // With and without the delimiter.
    std::int64_t totalLength() const;
    std::int64_t length() const;

    // The estimate until the line has been measured.
    double lineHeight() const { return m_lineHeight; }

    void setLineHeight(double height) { m_lineHeight = height; }

    // The sum over the node's subtree.
    double totalLineHeight() const { return m_totalLineHeight; }

    // Two bytes a code unit, or 0 where the line reached beyond the text when it was last measured.
    ByteCount byteCount() const;

    // The sum over the node's subtree.
    ByteCount nodeTotalByteCount() const { return ByteCount::ofCodeUnits(m_totalCountedUnits); }

    // Whether the line lies within the text and so has bytes. To be followed by updateAggregates().
    void setBytesAreCounted(bool counted) { m_bytesAreCounted = counted; }

    // The same for the data of a node still to be made, of that length and without children.
    void setBytesAreCounted(bool counted, std::int64_t totalLength) {
        m_bytesAreCounted = counted;
        m_totalCountedUnits = counted ? totalLength : 0;
    }

    // Where the line starts: in points from the top, in bytes from the beginning. O(log n).
    double yPosition() const;
    ByteCount startByte() const;

    DocumentLineNode& node();
    const DocumentLineNode& node() const;

private:
    friend class DocumentLineChildrenUpdater;

    std::int64_t countedUnits() const;

    double m_lineHeight;
    double m_totalLineHeight;
    std::int64_t m_totalCountedUnits = 0; // of the subtree: half of its bytes
    std::int8_t m_delimiterLength = 0;
    bool m_bytesAreCounted = false;
};

static_assert(sizeof(DocumentLineNode) == 96, "a million lines are to fit into a hundred megabytes");

inline DocumentLineNode& DocumentLineNodeData::node() {
    return DocumentLineNode::holding(*this);
}

inline const DocumentLineNode& DocumentLineNodeData::node() const {
    return DocumentLineNode::holding(*this);
}

inline std::int64_t DocumentLineNodeData::totalLength() const {
    return node().value();
}

inline std::int64_t DocumentLineNodeData::length() const {
    return node().value() - m_delimiterLength;
}

inline std::int64_t DocumentLineNodeData::countedUnits() const {
    return m_bytesAreCounted ? node().value() : 0;
}

inline ByteCount DocumentLineNodeData::byteCount() const {
    return ByteCount::ofCodeUnits(countedUnits());
}

} // namespace tessarine
