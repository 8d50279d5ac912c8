#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterQueryMatch.h"

#include <vector>

namespace tessarine {

// Decides which captures of a match stand, by the text that they were parsed from. Borrows both.
class TreeSitterTextPredicatesEvaluator {
public:
    TreeSitterTextPredicatesEvaluator(const TreeSitterQueryMatch& match, const TextSnapshot& text)
        : m_match(match)
        , m_text(text) {}

    // Whether all conditions of the capture's pattern hold.
    bool evaluate(const TreeSitterCapture& capture) const;

private:
    bool holds(const CaptureEqualsStringParameters& parameters) const;
    bool holds(const CaptureEqualsCaptureParameters& parameters) const;
    bool holds(const CaptureMatchesPatternParameters& parameters) const;
    bool holds(const UnsupportedParameters& parameters) const;

    const TreeSitterQueryMatch& m_match;
    const TextSnapshot& m_text;
};

// Those captures of a match that are not empty and stand, appended in order.
void appendValidCaptures(const TreeSitterQueryMatch& match, const TextSnapshot& text,
                         std::vector<TreeSitterCapture>& captures);

} // namespace tessarine
