#pragma once

#include "Tessarine/base/EdgeInsets.h"
#include "Tessarine/layout/View.h"

namespace tessarine {

// A view onto a larger content, whose coordinates those of its subviews are. In points.
class ScrollView : public View {
public:
    // Where the content shows at the top left corner.
    const Point& contentOffset() const { return m_contentOffset; }

    void setContentOffset(const Point& offset);

    const Size& contentSize() const { return m_contentSize; }

    void setContentSize(const Size& size) { m_contentSize = size; }

    // Room around the content that one can scroll into.
    const EdgeInsets& contentInset() const { return m_contentInset; }

    void setContentInset(const EdgeInsets& inset) { m_contentInset = inset; }

    // That which the host's surroundings cover.
    const EdgeInsets& safeAreaInsets() const { return m_safeAreaInsets; }

    void setSafeAreaInsets(const EdgeInsets& insets) { m_safeAreaInsets = insets; }

    // Both.
    EdgeInsets adjustedContentInset() const;

    Rect bounds() const override;

private:
    Point m_contentOffset;
    Size m_contentSize;
    EdgeInsets m_contentInset;
    EdgeInsets m_safeAreaInsets;
};

} // namespace tessarine
