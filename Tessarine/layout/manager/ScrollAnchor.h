#pragma once

#include "Tessarine/layout/manager/RowSearch.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// Remembers what shows at the top of the viewport of a line that begins above it, and tells how far that has
// moved when the line has been laid out anew.
//
// That is the row there, by the text it begins with. Where no row has been typeset it is what lies below the
// line, as for lines that are above the viewport as a whole.
// Units: points and code units from the start of the line.
class ScrollAnchor {
public:
    ScrollAnchor(const LineFragments& rows, double viewportTop, double lineHeight);

    // To be typeset up to here, if there is a row to find again.
    const std::optional<std::int64_t>& location() const { return m_location; }

    double shiftIn(const LineFragments& rows, double lineHeight) const;

private:
    std::optional<std::int64_t> m_location;
    double m_y; // of the row, else of the line's end
};

} // namespace tessarine
