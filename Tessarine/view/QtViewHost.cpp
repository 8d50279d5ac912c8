#include "Tessarine/view/QtViewHost.h"

#include "Tessarine/view/QtConversions.h"

#include <QtWidgets/QWidget>

namespace tessarine {

// Cut to the widget before it becomes whole numbers: a document may be higher than these go.
void QtViewHost::viewNeedsDisplay(const Rect& rect) {
    const QRectF shown = toQt(rect) & QRectF(m_widget.rect());
    const QRegion changed = QRegion(shown.toAlignedRect()) - m_paintedRegion;
    if (!changed.isEmpty()) m_widget.update(changed);
}

} // namespace tessarine
