#pragma once

#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtConversions.h"

#include <cstdint>

namespace tessarine {

// The character boundary nearest to a place in the viewport.
inline std::int64_t locationAt(TextView& textView, const QPointF& place) {
    return textView.closestIndex(textView.contentPoint(fromQt(place)));
}

// Where something in the content lies in the viewport.
inline QRectF inViewport(const TextView& textView, const Rect& contentRect) {
    return toQt(contentRect).translated(-toQt(textView.contentPoint({})));
}

} // namespace tessarine
