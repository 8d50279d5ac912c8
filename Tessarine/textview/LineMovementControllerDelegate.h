#pragma once

#include "Tessarine/document/DocumentLineNodeData.h"
#include "Tessarine/layout/LineFragment.h"

#include <cstdint>

namespace tessarine {

// Who knows the rows of lines. Main thread.
class LineMovementControllerDelegate {
public:
    LineMovementControllerDelegate() = default;
    LineMovementControllerDelegate(const LineMovementControllerDelegate&) = delete;
    LineMovementControllerDelegate& operator=(const LineMovementControllerDelegate&) = delete;
    virtual ~LineMovementControllerDelegate() = default;

    // All of the line; at least 1.
    virtual std::int64_t numberOfLineFragments(DocumentLineNode& line) = 0;

    // The index is below that number. An empty line has a row without a text line.
    virtual LineFragmentReference lineFragmentAtIndex(std::int64_t index, DocumentLineNode& line) = 0;

    // By a location in the line, at most its length; one between two rows lies in the second.
    virtual LineFragmentReference lineFragmentContaining(std::int64_t locationInLine,
                                                         DocumentLineNode& line) = 0;
};

} // namespace tessarine
