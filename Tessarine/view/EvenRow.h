#pragma once

#include "Tessarine/view/RowText.h"

namespace tessarine {

// Places in a row whose units are each as wide as its face says (RowText::isEven()): they are what a layout
// of the row would tell, but reckoned. In points from the left end. Cost: O(runs).

// Where the unit at a position starts.
double evenX(const RowText& row, int position);

// How many units, at least one, are not wider than that.
int evenFittingUnits(const RowText& row, double width);

// The position nearest to a place.
int evenNearest(const RowText& row, double x);

} // namespace tessarine
