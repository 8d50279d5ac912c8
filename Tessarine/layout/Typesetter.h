#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/AttributedString.h"
#include "Tessarine/layout/TextLine.h"

#include <cstdint>
#include <memory>

namespace tessarine {

// Breaks one string into rows. The string may have millions of units: an implementation looks at the part
// that it is asked for and at a bounded stretch around it, never at the whole.
class Typesetter {
public:
    Typesetter() = default;
    Typesetter(const Typesetter&) = delete;
    Typesetter& operator=(const Typesetter&) = delete;
    virtual ~Typesetter() = default;

    // How many units from `start` on fit into a row of that width; at least one, though it be wider. What is
    // answered depends on nothing in front of `start`. Requires 0 <= start < length and a width above 0.
    virtual std::int64_t suggestLineBreak(std::int64_t start, double width) = 0;

    // A row of a range, which is not empty and lies in the string.
    virtual std::shared_ptr<const TextLine> createLine(const TextRange& range) = 0;
};

} // namespace tessarine
