#include "Quillet/screens/info/SegmentChip.h"

namespace quillet {

SegmentChip::SegmentChip(QWidget* parent)
    : Chip(parent) {
    setCheckable(true);
    setAutoExclusive(true);
}

Chip::Look SegmentChip::look() const {
    return {.fill = isChecked() ? platform::Asset::ActiveOrange : platform::Asset::KindaDarkThing,
            .border = std::nullopt,
            .text = Qt::white};
}

} // namespace quillet
