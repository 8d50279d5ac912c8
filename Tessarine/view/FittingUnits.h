#pragma once

#include "Tessarine/view/RowText.h"

namespace tessarine {

// How many units of a row, which is not empty, fit into the width: whole characters, at least one. Where text
// runs from right to left a letter at an end looks another than within, so there it is some eight times as
// costly.
int fittingUnits(const RowText& row, double width);

} // namespace tessarine
