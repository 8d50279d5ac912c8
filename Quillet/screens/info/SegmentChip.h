#pragma once

#include "Quillet/screens/info/Chip.h"

namespace quillet {

// A chip of the segments: white on the active colour while its code is on screen. One of a row is. Main
// thread.
class SegmentChip : public Chip {
    Q_OBJECT

public:
    explicit SegmentChip(QWidget* parent = nullptr);

protected:
    Look look() const override;
};

} // namespace quillet
