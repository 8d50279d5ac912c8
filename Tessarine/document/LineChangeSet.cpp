#include "Tessarine/document/LineChangeSet.h"

namespace tessarine {

namespace {

void addAll(LineSet& set, const LineSet& others) {
    for (const DocumentLineNodeReference& line : others)
        set.insert(*line);
}

} // namespace

void LineChangeSet::markLineEdited(DocumentLineNode& line) {
    if (!m_insertedLines.contains(line) && !m_removedLines.contains(line)) m_editedLines.insert(line);
}

void LineChangeSet::markLineInserted(DocumentLineNode& line) {
    m_removedLines.remove(line);
    m_editedLines.remove(line);
    m_insertedLines.insert(line);
}

void LineChangeSet::markLineRemoved(DocumentLineNode& line) {
    m_insertedLines.remove(line);
    m_editedLines.remove(line);
    m_removedLines.insert(line);
}

void LineChangeSet::unionWith(const LineChangeSet& other) {
    addAll(m_insertedLines, other.m_insertedLines);
    addAll(m_removedLines, other.m_removedLines);
    addAll(m_editedLines, other.m_editedLines);
}

} // namespace tessarine
