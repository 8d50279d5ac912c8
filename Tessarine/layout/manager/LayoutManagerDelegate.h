#pragma once

#include "Tessarine/base/Size.h"

namespace tessarine {

// What the layout reports to the view that it lays out. Main thread.
class LayoutManagerDelegate {
public:
    LayoutManagerDelegate() = default;
    LayoutManagerDelegate(const LayoutManagerDelegate&) = delete;
    LayoutManagerDelegate& operator=(const LayoutManagerDelegate&) = delete;
    virtual ~LayoutManagerDelegate() = default;

    // To be set as the content size of the scroll view, at once: the layout may scroll next.
    virtual void layoutManagerDidChangeContentSize(const Size& size) = 0;

    virtual void layoutManagerDidChangeGutterWidth() = 0;

    // The view is to run layoutIfNeeded() soon.
    virtual void layoutManagerNeedsLayout() = 0;
};

} // namespace tessarine
