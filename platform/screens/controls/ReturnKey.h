#pragma once

#include <QtGui/QKeyEvent>

namespace platform {

// Whether the key presses what has the focus, as Space does: Return or Enter, and not while it is held, which
// would press again and again.
inline bool isReturn(const QKeyEvent& event) {
    const bool isEither = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isEither && !event.isAutoRepeat();
}

} // namespace platform
