#pragma once

#include "Tessarine/layout/manager/RowSearch.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// Remembers what shows at the top of the viewport of a line that begins above it, and tells how far that has
// moved when the line has been laid out anew.
//
// That is the row there, by the text it begins with. Where no row has been typeset, or where its text has
// gone, it is what lies below the line, as for lines that are above the viewport as a whole.
//
// Units: points and code units from the start of the line.
class ScrollAnchor {
public:
    ScrollAnchor(const LineFragments& rows, double viewportTop, double lineHeight);

    // Where the text of the row begins, if it is one.
    const std::optional<std::int64_t>& location() const { return m_location; }

    // Whether the line has been typeset as far as that.
    bool isIn(const LineFragments& rows) const { return !m_location || rowOfUnit(rows, *m_location); }

    double shiftIn(const LineFragments& rows, double lineHeight) const;

private:
    std::optional<std::int64_t> m_location;
    double m_rowY = 0;
    double m_lineHeight;
};

} // namespace tessarine
