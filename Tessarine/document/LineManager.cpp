#include "Tessarine/document/LineManager.h"

#include "Tessarine/document/DocumentLineChildrenUpdater.h"
#include "Tessarine/document/LineBreakList.h"

#include <cmath>
#include <limits>

namespace tessarine {

LineManager::LineManager(std::shared_ptr<const StringView> stringView)
    : m_stringView(std::move(stringView))
    , m_documentLineTree(DocumentLineTree::create(0, 0, DocumentLineNodeData(m_estimatedLineHeight))) {
    m_documentLineTree->setChildrenUpdater(std::make_unique<DocumentLineChildrenUpdater>());
}

void LineManager::rebuild(std::u16string_view text) {
    const TextRun run(0, std::span<const char16_t>(text));
    rebuild(std::span(&run, 1));
}

void LineManager::rebuild() {
    std::vector<TextRun> runs;
    for (const TextRun& run : m_stringView->runs(0, m_stringView->length()))
        runs.push_back(run);
    rebuild(runs);
}

// The old lines go first, so that their memory serves the new ones.
void LineManager::rebuild(std::span<const TextRun> runs) {
    m_initialLongestLine = {};
    DocumentLineNodeReference placeholder =
        m_documentLineTree->makeNode(0, DocumentLineNodeData(m_estimatedLineHeight));
    m_documentLineTree->rebuildBalanced(std::span(&placeholder, 1));
    std::int64_t length = 0;
    for (const TextRun& run : runs)
        length += run.size();
    LineBreakList lines(length);
    for (const TextRun& run : runs)
        run.visit([&](auto units) { lines.append(units); });
    lines.finish();
    DocumentLineNodeData data(m_estimatedLineHeight);
    m_documentLineTree->rebuildBalanced(lines.count(), [&](std::size_t row) {
        const auto [lineLength, delimiterLength] = lines.next();
        data.setDelimiterLength(delimiterLength);
        data.setBytesAreCounted(true, lineLength);
        DocumentLineNodeReference line = m_documentLineTree->makeNode(lineLength, data);
        if (lines.longestRow() == row) m_initialLongestLine = line;
        return line;
    });
}

LineChangeSet LineManager::removeCharacters(std::int64_t location, std::int64_t length) {
    LineChangeSet changes;
    if (length < 1) return changes;
    const auto [startLocation, startEnd, startLine] = matchContaining(location);
    if (startLocation + startLine->data().length() < location) {
        changes = setLineLength(*startLine, startLine->value() - 1);
        changes.unionWith(removeCharacters(location, length - 1));
        return changes;
    }
    const std::int64_t end = checkedSum(location, length);
    if (end < startEnd) return setLineLength(*startLine, startLine->value() - length);
    const auto endMatch = matchContaining(end);
    if (endMatch.node == startLine) return setLineLength(*startLine, startLine->value() - length);
    removeLines(*startLine, *endMatch.node, changes);
    const std::int64_t removedInStartLine = startEnd - location;
    const std::int64_t leftInEndLine = endMatch.value - end;
    changes.unionWith(setLineLength(*startLine, startLine->value() - removedInStartLine + leftInEndLine));
    return changes;
}

// Removes the lines behind `startLine`, up to and including `endLine`.
void LineManager::removeLines(DocumentLineNode& startLine, const DocumentLineNode& endLine,
                              LineChangeSet& changes) {
    for (DocumentLineNode* line = &startLine.nextNode();;) {
        DocumentLineNode& next = line->nextNode();
        const bool isLast = line == &endLine;
        removeLine(*line, changes);
        if (isLast) return;
        line = &next;
    }
}

LineChangeSet LineManager::insertText(std::u16string_view text, std::int64_t location) {
    LineChangeSet changes;
    const auto [lineLocation, lineEnd, found] = matchContaining(location);
    DocumentLineNode* line = found;
    if (lineLocation + line->data().length() < location) {
        changes.unionWith(setLineLength(*line, line->value() - 1));
        line = &splitOff(*line, 1, changes);
    }
    std::int64_t lastBreakEnd = 0;
    for (auto range = rangeOfNextNewLine(text, 0); range; range = rangeOfNextNewLine(text, lastBreakEnd)) {
        const std::int64_t start = line->location();
        const std::int64_t restLength = start + line->value() - (location + lastBreakEnd);
        changes.unionWith(setLineLength(*line, location + range->end() - start));
        line = &splitOff(*line, restLength, changes);
        lastBreakEnd = range->end();
    }
    const std::int64_t restOfText = static_cast<std::int64_t>(text.size()) - lastBreakEnd;
    if (lastBreakEnd == 0 || restOfText > 0)
        changes.unionWith(setLineLength(*line, line->value() + restOfText));
    return changes;
}

// The new line is returned also if it has been merged into the line before and is in no tree any more.
DocumentLineNode& LineManager::splitOff(DocumentLineNode& line, std::int64_t length, LineChangeSet& changes) {
    const DocumentLineNodeReference newLine = insertLineAfter(length, line);
    changes.markLineInserted(*newLine);
    changes.unionWith(setLineLength(*newLine, length));
    return *newLine;
}

// Edits of lines all come down to this: the line gets its new length, and the text at its end tells which
// delimiter it has now. A line that turns out to be the LF of the CR before it joins that line.
LineChangeSet LineManager::setLineLength(DocumentLineNode& line, std::int64_t newTotalLength) {
    LineChangeSet changes;
    changes.markLineEdited(line);
    const std::int64_t location = line.location();
    DocumentLineNodeData& data = line.data();
    const ByteCount oldByteCount = data.byteCount();
    const bool hasNewLength = line.value() != newTotalLength;
    line.setValue(newTotalLength);
    data.setBytesAreCounted(canMeasure(location, newTotalLength));
    if (hasNewLength || data.byteCount() != oldByteCount) m_documentLineTree->updateAggregates(line);
    if (isLineFeedOfPreviousLine(location, newTotalLength))
        return mergeIntoPreviousLine(line, std::move(changes));
    data.setDelimiterLength(delimiterLengthAfter(location, newTotalLength));
    return changes;
}

// Only CR and LF count here; the other breaks are delimiters of length 0 from the first edit on.
int LineManager::delimiterLengthAfter(std::int64_t location, std::int64_t totalLength) const {
    if (totalLength == 0) return 0;
    const auto last = characterAt(location + totalLength - 1);
    if (last == u'\r') return 1;
    if (last != u'\n') return 0;
    return totalLength >= 2 && characterAt(location + totalLength - 2) == u'\r' ? 2 : 1;
}

bool LineManager::isLineFeedOfPreviousLine(std::int64_t location, std::int64_t totalLength) const {
    return totalLength == 1 && characterAt(location) == u'\n' && characterAt(location - 1) == u'\r';
}

LineChangeSet LineManager::mergeIntoPreviousLine(DocumentLineNode& line, LineChangeSet changes) {
    DocumentLineNode& previous = line.previousNode();
    removeLine(line, changes);
    changes.unionWith(setLineLength(previous, previous.value() + 1));
    return changes;
}

void LineManager::removeLine(DocumentLineNode& line, LineChangeSet& changes) {
    changes.markLineRemoved(line);
    m_documentLineTree->removeNode(line);
    if (m_initialLongestLine.get() == &line) m_initialLongestLine = {};
}

// The line's bytes are measured before it is hung into the tree, so that one climb brings all totals up.
DocumentLineNodeReference LineManager::insertLineAfter(std::int64_t length, DocumentLineNode& line) {
    DocumentLineNodeData data(m_estimatedLineHeight);
    data.setBytesAreCounted(canMeasure(line.location() + line.value(), length), length);
    return m_documentLineTree->insertNodeAfter(length, data, line);
}

// The text may be shorter than the lines for a moment: between the removal and the insertion of a
// replacement.
bool LineManager::canMeasure(std::int64_t location, std::int64_t totalLength) const {
    return location >= 0 && totalLength >= 1 && location + totalLength <= m_stringView->length();
}

std::optional<char16_t> LineManager::characterAt(std::int64_t location) const {
    if (location < 0 || location >= m_stringView->length()) return std::nullopt;
    return m_stringView->characterAt(location);
}

bool LineManager::setLineHeight(DocumentLineNode& line, double height) {
    if (std::abs(height - line.data().lineHeight()) < std::numeric_limits<double>::epsilon()) return false;
    line.data().setLineHeight(height);
    m_documentLineTree->updateAggregates(line);
    return true;
}

std::optional<LinePosition> LineManager::linePosition(std::int64_t location) const {
    const auto found = m_documentLineTree->nodePosition(location);
    if (!found) return std::nullopt;
    const LineDetails details{.startLocation = found->nodeStartLocation,
                              .totalLength = found->value,
                              .position = {.row = found->index, .column = found->offset}};
    return details.position;
}

DocumentLineTree::SearchMatch LineManager::matchContaining(std::int64_t location) const {
    const auto match = m_documentLineTree->matchContainingLocation(location);
    if (!match) fatalError("A location lies outside of the document.");
    return *match;
}

DocumentLineNode& LineManager::lineContaining(std::int64_t location) const {
    return *matchContaining(location).node;
}

DocumentLineNode* LineManager::lineContainingYOffset(double offset) const {
    DocumentLineNode* node = &m_documentLineTree->root();
    if (offset == node->data().totalLineHeight()) return &m_documentLineTree->lastNode();
    while (node) {
        __builtin_prefetch(node->right());
        if (const DocumentLineNode* left = node->left()) {
            if (offset < left->data().totalLineHeight()) {
                node = node->left();
                continue;
            }
            offset -= left->data().totalLineHeight();
        }
        offset -= node->data().lineHeight();
        if (offset < 0.0) break;
        node = node->right();
    }
    return node;
}

bool LineManager::reachesOutside(std::int64_t location, std::int64_t length) const {
    const std::int64_t end = checkedSum(location, length);
    return end < 0 || end > m_documentLineTree->root().nodeTotalValue();
}

std::optional<std::pair<DocumentLineNode*, DocumentLineNode*>>
LineManager::firstAndLastLine(std::int64_t location, std::int64_t length) const {
    if (reachesOutside(location, 0) || reachesOutside(location, length)) return std::nullopt;
    DocumentLineNode* first = &lineContaining(location);
    return std::pair(first, length == 0 ? first : &lineContaining(location + length));
}

std::vector<DocumentLineNode*> LineManager::linesInRange(std::int64_t location, std::int64_t length) const {
    if (reachesOutside(location, 0)) return {};
    DocumentLineNode* line = &lineContaining(location);
    std::vector<DocumentLineNode*> lines{line};
    if (length < 1 || reachesOutside(location, length)) return lines;
    for (const DocumentLineNode* last = &lineContaining(location + length); line != last;) {
        line = &line->nextNode();
        lines.push_back(line);
    }
    return lines;
}

double LineManager::contentHeight() const {
    const DocumentLineNodeData& last = m_documentLineTree->lastNode().data();
    return last.yPosition() + last.lineHeight();
}

} // namespace tessarine
