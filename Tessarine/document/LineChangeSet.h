#pragma once

#include "Tessarine/document/LineSet.h"

namespace tessarine {

// Which lines an edit made, took away and changed. Keeps them alive, removed ones too.
// A line that came and went within one edit may stand in both insertedLines and removedLines, and an
// inserted one in editedLines as well: unionWith() does not reconcile.
class LineChangeSet {
public:
    const LineSet& insertedLines() const { return m_insertedLines; }

    const LineSet& removedLines() const { return m_removedLines; }

    const LineSet& editedLines() const { return m_editedLines; }

    // Has no effect on a line that is marked inserted or removed.
    void markLineEdited(DocumentLineNode& line);
    void markLineInserted(DocumentLineNode& line);
    void markLineRemoved(DocumentLineNode& line);

    // Adds the members of each of the other's sets to the same set here.
    void unionWith(const LineChangeSet& other);

private:
    LineSet m_insertedLines;
    LineSet m_removedLines;
    LineSet m_editedLines;
};

} // namespace tessarine
