#pragma once

#include "Tessarine/base/Rect.h"

namespace tessarine {

// Whoever shows a tree of views. Main thread.
class ViewHost {
public:
    ViewHost() = default;
    ViewHost(const ViewHost&) = delete;
    ViewHost& operator=(const ViewHost&) = delete;
    virtual ~ViewHost() = default;

    // What is shown there, in the coordinates of the tree's root, is out of date. May be called for each
    // change, so it only notes the place.
    virtual void viewNeedsDisplay(const Rect& rect) = 0;
};

} // namespace tessarine
