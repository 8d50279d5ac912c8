#include "Tessarine/view/QtMainExecutor.h"

#include <utility>

namespace tessarine {

void QtMainExecutor::post(Task task) {
    QMetaObject::invokeMethod(
        &m_receiver, [work = std::move(task)]() mutable { work(); }, Qt::QueuedConnection);
}

} // namespace tessarine
