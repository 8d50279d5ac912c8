#pragma once

#include "Tessarine/layout/View.h"

namespace tessarine {

// The caret as it follows a finger; its ends are round.
class FloatingCaretView final : public View {
protected:
    void layoutSubviews() override { setCornerRadius(frame().width / 2); }
};

} // namespace tessarine
