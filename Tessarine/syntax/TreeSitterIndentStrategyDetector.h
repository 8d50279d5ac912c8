#pragma once

#include "Tessarine/document/DetectedIndentStrategy.h"
#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/TreeSitterTree.h"

#include <cstdint>

namespace tessarine {

// Tells what the lines of a text are indented with. Made and dropped within one call; borrows everything.
//
// The first 20 lines with content decide, or 100 lines in all; comments say nothing. Where none of those is
// indented it looks on. A short text that ends before, in an empty line or a comment, stays unknown.
class TreeSitterIndentStrategyDetector {
public:
    TreeSitterIndentStrategyDetector(const LineManager& lineManager, const TreeSitterTree& tree,
                                     const StringView& stringView)
        : m_lineManager(lineManager)
        , m_tree(tree)
        , m_stringView(stringView) {}

    DetectedIndentStrategy detect();

private:
    struct Counts {
        std::int64_t visited = 0;
        std::int64_t countedLines = 0;
        std::int64_t tabLines = 0;
        std::int64_t spaceLines = 0;
        std::int64_t smallestSpaces = 0; // of an indented line; 0 before there is one
    };

    bool isComment(std::int64_t row) const;
    void count(const DocumentLineNode& line);
    void countSpaces(std::int64_t location, std::int64_t totalLength);
    bool hasSeenEnough() const;

    const LineManager& m_lineManager;
    const TreeSitterTree& m_tree;
    const StringView& m_stringView;
    Counts m_counts;
};

} // namespace tessarine
