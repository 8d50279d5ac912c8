#include "Tessarine/layout/manager/HighlightView.h"

namespace tessarine {

void HighlightView::show(const CachedHighlightRect& highlight) {
    setFrame(highlight.rect);
    setBackgroundColor(highlight.color);
    setCornerRadius(highlight.cornerRadius);
    setMaskedCorners({.topLeft = highlight.containsStart,
                      .topRight = highlight.containsEnd,
                      .bottomLeft = highlight.containsStart,
                      .bottomRight = highlight.containsEnd});
}

} // namespace tessarine
