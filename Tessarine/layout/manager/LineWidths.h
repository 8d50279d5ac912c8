#pragma once

#include "Tessarine/document/DocumentLineNodeID.h"

#include <optional>
#include <unordered_map>

namespace tessarine {

// How wide the lines are that have been laid out, and which of them is the widest: it is tracked, so that
// nobody has to look at all of them.
//
// In points. Cost: O(1), but for the first widest() after the tracked line went or shrank: O(lines known).
class LineWidths {
public:
    bool isEmpty() const { return m_lineWidths.empty(); }

    // True if the widest line may be another one or have another width now.
    bool set(const DocumentLineNodeID& lineID, double width);

    bool remove(const DocumentLineNodeID& lineID);
    void removeAll();

    // Nothing as long as no line is known.
    std::optional<double> widest();

private:
    void findWidest();

    std::unordered_map<DocumentLineNodeID, double> m_lineWidths;
    std::optional<DocumentLineNodeID> m_lineIDTrackingWidth; // absent: to be looked for
};

} // namespace tessarine
