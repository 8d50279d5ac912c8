#pragma once

#include "Tessarine/layout/LineFragment.h"
#include "Tessarine/layout/LineFragmentsMap.h"

namespace tessarine {

// The rows that one call has made.
struct TypesetResult {
    LineFragments lineFragments;
    LineFragmentsMap lineFragmentsMap;
    double maximumLineWidth = 0; // in points; of these rows
};

} // namespace tessarine
