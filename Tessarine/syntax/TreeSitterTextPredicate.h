#pragma once

#include "Tessarine/syntax/RegularExpression.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace tessarine {

struct CaptureEqualsStringParameters {
    std::uint32_t captureIndex;
    std::u16string string;
    bool isPositive;
};

struct CaptureEqualsCaptureParameters {
    std::uint32_t lhsCaptureIndex;
    std::uint32_t rhsCaptureIndex;
    bool isPositive;
};

struct CaptureMatchesPatternParameters {
    std::uint32_t captureIndex;
    std::shared_ptr<const RegularExpression> pattern;
    bool isPositive;
};

struct UnsupportedParameters {
    std::string name;
};

// A condition on the texts of a match's captures.
using TreeSitterTextPredicate = std::variant<CaptureEqualsStringParameters, CaptureEqualsCaptureParameters,
                                             CaptureMatchesPatternParameters, UnsupportedParameters>;

} // namespace tessarine
