#include "platform/foundation/MainQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThreadPool>

#include <utility>

namespace platform {

void dispatchToMain(std::function<void()> work) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

void dispatchToBackground(std::function<void()> work) {
    QThreadPool::globalInstance()->start(std::move(work));
}

} // namespace platform
