#pragma once

#include "Tessarine/view/RowStyle.h"

#include <memory>
#include <vector>

namespace tessarine {

// The styles that are in use, each once: so rows that look alike share theirs. A document has some twenty,
// which are looked through one by one. Main thread.
class RowStyles {
public:
    std::shared_ptr<const RowStyle> styleOf(const TextAttributes& attributes);

private:
    void removeUnused();

    std::vector<std::weak_ptr<const RowStyle>> m_styles;
    std::size_t m_sizeToSweep = 64;
};

} // namespace tessarine
