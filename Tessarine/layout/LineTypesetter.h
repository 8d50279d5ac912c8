#pragma once

#include "Tessarine/base/Rect.h"
#include "Tessarine/document/AttributedString.h"
#include "Tessarine/layout/LineBreakMode.h"
#include "Tessarine/layout/TextShaper.h"
#include "Tessarine/layout/TypesetResult.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tessarine {

// Breaks a line into rows, no further than it is asked to: it stands at a place in the line and goes on from
// there.
//
// Units: code units of the line, points for the rest.
// Invariants: rows follow each other without a gap in text and height, from the line's start to
// startOffset() and nextYPosition(). Cost: the rows that a call makes, each about a look at the text of a
// row; of the line's length nothing depends. Main thread.
class LineTypesetter {
public:
    // Rows that came to be in another way than by a call that goes on.
    struct ChangedFragments {
        std::int64_t first;
        std::int64_t limit;
    };

    explicit LineTypesetter(std::shared_ptr<const TextShaper> shaper)
        : m_shaper(std::move(shaper)) {}

    // What the text may take; nothing is set as long as it is 0. For the rows that are still to be made.
    double constrainingWidth() const { return m_constrainingWidth; }

    void setConstrainingWidth(double width) { m_constrainingWidth = width; }

    double lineFragmentHeightMultiplier() const { return m_lineFragmentHeightMultiplier; }

    void setLineFragmentHeightMultiplier(double multiplier) { m_lineFragmentHeightMultiplier = multiplier; }

    LineBreakMode lineBreakMode() const { return m_lineBreakMode; }

    void setLineBreakMode(LineBreakMode mode) { m_lineBreakMode = mode; }

    // Part of the ids of its rows.
    const NodeIdentity& lineID() const { return m_lineID; }

    const LineFragments& lineFragments() const { return m_lineFragments; }

    LineFragmentsMap lineFragmentsMap() const { return {m_lineID, 0, lineFragmentIndex()}; }

    double maximumLineWidth() const { return m_maximumLineWidths.empty() ? 0 : m_maximumLineWidths.back(); }

    std::int64_t stringLength() const { return m_stringLength; }

    // Where the next row starts, in text and height.
    std::int64_t startOffset() const { return m_startOffset; }

    double nextYPosition() const { return m_nextYPosition; }

    std::int64_t lineFragmentIndex() const { return static_cast<std::int64_t>(m_lineFragments.size()); }

    bool isAtEnd() const { return m_startOffset == m_stringLength; }

    // Null before there is one, and at the end, when it is not needed any more.
    const std::shared_ptr<const AttributedString>& attributedString() const { return m_attributedString; }

    // There is no line any more.
    void reset();

    // Starts a line.
    void prepareToTypeset(std::shared_ptr<const AttributedString> attributedString);

    // Goes on until the rows reach down to the rectangle's lower end.
    TypesetResult typesetLineFragments(const Rect& rect);

    // Goes on until the rows reach the location, and then for so many more.
    TypesetResult typesetLineFragments(std::int64_t location, std::int64_t additionalLineFragmentCount);

    // Goes on with another text from where it differs: the first units are the same, and so are the rows that
    // are kept. They are told by their number.
    std::int64_t continueWith(std::shared_ptr<const AttributedString> attributedString,
                              std::int64_t unchangedLength);

    // Sets those rows anew on which a change of attributes in the range can tell, of the same text. The
    // others stay; with their place, if the new ones are of another number.
    ChangedFragments typesetAgain(std::shared_ptr<const AttributedString> attributedString,
                                  const TextRange& range);

    // How many there will be at the end if they go on like this. With no rows 0.
    std::int64_t bestGuessNumberOfLineFragments() const;

private:
    template <class IsWanted>
    TypesetResult typeset(IsWanted isWanted, std::int64_t additionalLineFragmentCount);
    LineFragmentReference makeFragment();
    std::int64_t lengthOfFragment();
    std::int64_t lengthByWords(std::int64_t length) const;
    std::int64_t leastLength() const;
    LineFragment fragmentOf(std::int64_t length) const;

    std::int64_t firstFragmentToldBy(std::int64_t location) const;
    void append(LineFragmentReference fragment);
    void appendMoved(LineFragmentReference fragment);
    void removeFragments(std::int64_t first);
    void begin(std::shared_ptr<const AttributedString> attributedString);
    void endIfAtEnd();

    const std::shared_ptr<const TextShaper> m_shaper;
    const NodeIdentity m_lineID;
    double m_constrainingWidth = 0;
    double m_lineFragmentHeightMultiplier = 1;
    LineBreakMode m_lineBreakMode = LineBreakMode::byWordWrapping;

    // What is set.
    std::shared_ptr<const AttributedString> m_attributedString;
    std::unique_ptr<Typesetter> m_typesetter;
    std::int64_t m_stringLength = 0;

    // How far it has come.
    LineFragments m_lineFragments;
    std::vector<double> m_maximumLineWidths; // of the rows up to each
    std::int64_t m_startOffset = 0;
    double m_nextYPosition = 0;
};

} // namespace tessarine
