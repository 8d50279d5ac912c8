#pragma once

#include "Tessarine/layout/TextShaper.h"

#include <cstdint>
#include <memory>

namespace tessarine {

// A text system that one can reckon with. In points: a character is 10 wide, 20 from U+1100 on (the second
// half of a pair has no width), nothing if it ends a line; bold characters are 1 wider. Kern is added behind
// each. A tab reaches to the next multiple of the tab interval, counted from the row's start. A row is 8
// above and 2 below its baseline, and 1 from the next.
class FixedAdvanceShaper final : public TextShaper {
public:
    std::unique_ptr<Typesetter>
    createTypesetter(std::shared_ptr<const AttributedString> attributedString) const override;

    // How many units more than fit a suggested row has.
    std::int64_t overshoot = 0;

    // So many rows were set.
    std::shared_ptr<std::int64_t> lineCount = std::make_shared<std::int64_t>(0);
};

} // namespace tessarine
