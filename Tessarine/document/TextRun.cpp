#include "Tessarine/document/TextRun.h"

#include <algorithm>

namespace tessarine {

TextRun TextRun::clipped(std::int64_t location, std::int64_t limit) const {
    const std::int64_t start = std::clamp(location, m_location, this->limit());
    const std::int64_t end = std::clamp(limit, start, this->limit());
    return visit([&](auto units) { return TextRun(start, units.subspan(start - m_location, end - start)); });
}

} // namespace tessarine
