#include "Tessarine/syntax/Checked32.h"

#include "Tessarine/base/FatalError.h"

#include <utility>

namespace tessarine {

std::uint32_t checked32(std::int64_t value) {
    if (!std::in_range<std::uint32_t>(value)) fatalError("A number does not fit into 32 unsigned bits.");
    return static_cast<std::uint32_t>(value);
}

} // namespace tessarine
