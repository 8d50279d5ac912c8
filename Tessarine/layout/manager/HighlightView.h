#pragma once

#include "Tessarine/layout/ReusableView.h"
#include "Tessarine/layout/View.h"
#include "Tessarine/layout/manager/CachedHighlightRect.h"

namespace tessarine {

// One row's part of a highlighted range. Only the corners at the range's own ends are round.
class HighlightView final : public View, public ReusableView {
public:
    void show(const CachedHighlightRect& highlight);

    void prepareForReuse() override { setBackgroundColor(std::nullopt); }
};

} // namespace tessarine
