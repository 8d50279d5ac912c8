#pragma once

#include "Tessarine/document/LineChangeSet.h"
#include "Tessarine/document/LineDetails.h"
#include "Tessarine/document/LinePosition.h"
#include "Tessarine/document/RedBlackTree.h"
#include "Tessarine/document/StringView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessarine {

using DocumentLineTree = RedBlackTree<DocumentLineNodeID, std::int64_t, DocumentLineNodeData>;

// The lines of a document: which one holds a location, stands at a row or at a height, and where it starts
// in code units, bytes and points. Told of each change of the text, it keeps them in step.
//
// Units: locations and lengths in UTF-16 code units, rows zero-based, heights in points.
// Invariants: there is always a line; line lengths sum up to the text; a text that ends in a break has an
// empty last line. See check().
// Ownership: lines are the tree's; hold a DocumentLineNodeReference to keep one beyond the next edit.
// Thread: one at a time; a manager built on one thread may be handed over whole to another.
// Cost: O(log n) for each line looked up or touched; rebuild() O(text).
// Locations must lie in the document where nothing else is said, else the program stops.
class LineManager {
public:
    explicit LineManager(std::shared_ptr<const StringView> stringView);

    // The height of lines that have not been measured. To be set before they are built.
    double estimatedLineHeight() const { return m_estimatedLineHeight; }

    void setEstimatedLineHeight(double height) { m_estimatedLineHeight = height; }

    DocumentLineTree& documentLineTree() const { return *m_documentLineTree; }

    // The longest line that the last rebuild found, the first of equals; null before, and once that line
    // has gone. Edits do not look for a longer one: it only seeds an estimate of the width.
    DocumentLineNode* initialLongestLine() const { return m_initialLongestLine.get(); }

    // Makes the lines of the whole text anew: of the one given, of the one that its runs make up, or of the
    // string view's. All old lines end.
    void rebuild(std::u16string_view text);
    void rebuild(std::span<const TextRun> runs);
    void rebuild();

    // To be called after the text has changed: it is read where lines end. A replacement is told as the
    // removal and then the insertion, both against the text that holds the replacement.
    LineChangeSet removeCharacters(std::int64_t location, std::int64_t length);
    LineChangeSet insertText(std::u16string_view text, std::int64_t location);

    // Tells whether the height differs from the one before.
    bool setLineHeight(DocumentLineNode& line, double height);

    // Nothing outside of the document.
    std::optional<LinePosition> linePosition(std::int64_t location) const;

    // The end of the document lies in the last line, any other boundary in the later one.
    DocumentLineNode& lineContaining(std::int64_t location) const;

    DocumentLineNode& lineAtRow(std::int64_t row) const { return m_documentLineTree->nodeAtIndex(row); }

    // Null below the content; the first line above it.
    DocumentLineNode* lineContainingYOffset(double offset) const;

    // The lines of both ends of a range; nothing if an end lies outside of the document.
    std::optional<std::pair<DocumentLineNode*, DocumentLineNode*>>
    firstAndLastLine(std::int64_t location, std::int64_t length) const;

    // The lines of a range in document order; of a range that reaches outside of the document only the
    // first, none if it starts there.
    std::vector<DocumentLineNode*> linesInRange(std::int64_t location, std::int64_t length) const;

    std::int64_t lineCount() const { return m_documentLineTree->root().nodeTotalCount(); }

    double contentHeight() const;

    // What is broken, or nothing. O(n): for tests.
    std::optional<std::string> check() const;

private:
    DocumentLineTree::SearchMatch matchContaining(std::int64_t location) const;
    bool reachesOutside(std::int64_t location, std::int64_t length) const;
    std::optional<char16_t> characterAt(std::int64_t location) const;
    bool canMeasure(std::int64_t location, std::int64_t totalLength) const;

    LineChangeSet setLineLength(DocumentLineNode& line, std::int64_t newTotalLength);
    int delimiterLengthAfter(std::int64_t location, std::int64_t totalLength) const;
    bool isLineFeedOfPreviousLine(std::int64_t location, std::int64_t totalLength) const;
    LineChangeSet mergeIntoPreviousLine(DocumentLineNode& line, LineChangeSet changes);
    DocumentLineNodeReference insertLineAfter(std::int64_t length, DocumentLineNode& line);
    DocumentLineNode& splitOff(DocumentLineNode& line, std::int64_t length, LineChangeSet& changes);
    void removeLine(DocumentLineNode& line, LineChangeSet& changes);
    void removeLines(DocumentLineNode& startLine, const DocumentLineNode& endLine, LineChangeSet& changes);

    const std::shared_ptr<const StringView> m_stringView;
    double m_estimatedLineHeight = 12.0;
    const std::shared_ptr<DocumentLineTree> m_documentLineTree;
    DocumentLineNodeReference m_initialLongestLine; // let go of when the line leaves the document
};

} // namespace tessarine
