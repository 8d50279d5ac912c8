#pragma once

#include "Quillet/screens/info/SegmentChip.h"

namespace quillet {

// The chip "Code" of a snippet's own code, which no segment stands behind. Main thread.
class FakeSegmentView : public SegmentChip {
    Q_OBJECT

public:
    explicit FakeSegmentView(QWidget* parent = nullptr)
        : SegmentChip(parent) {
        setTitle(QStringLiteral("Code"));
    }
};

} // namespace quillet
