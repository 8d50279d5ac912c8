#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/layout/TypographicBounds.h"

#include <cstdint>
#include <vector>

namespace tessarine {

// A row of text, set; DrawContext::drawLine() draws it. In points from the row's left end; indices are code
// units of the string that the row is a part of, not of the row.
//
// A line keeps what it looked like when it was made, whatever becomes of string and typesetter. Of a long
// string there may be a hundred thousand, most of them off the screen, so they should be small.
class TextLine {
public:
    // A stretch of the row as one sees it.
    struct Span {
        double minX = 0;
        double maxX = 0;

        friend bool operator==(const Span&, const Span&) = default;
    };

    TextLine() = default;
    TextLine(const TextLine&) = delete;
    TextLine& operator=(const TextLine&) = delete;
    virtual ~TextLine() = default;

    virtual TextRange stringRange() const = 0;

    // The width is that of all units, trailing spaces included.
    virtual TypographicBounds typographicBounds() const = 0;

    // Where the unit starts. An index outside of the range gives the end on its side.
    virtual double offsetForStringIndex(std::int64_t index) const = 0;

    // Where a part of the row shows, from left to right; at least one. Of more than one there is need where
    // text runs both ways, which whoever sets such text has to know of.
    virtual std::vector<Span> spansOf(const TextRange& range) const;

    // Whether all of it runs from left to right, so that what shows between two places is what stands between
    // them in the string.
    virtual bool runsFromLeftToRight() const { return false; }

    // The boundary between characters that is nearest; beyond an end that end.
    virtual std::int64_t stringIndexForPosition(double x) const = 0;
};

} // namespace tessarine
