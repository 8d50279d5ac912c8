#include "platform/foundation/NotificationCenter.h"

#include "platform/foundation/NeverDestroyed.h"

#include <utility>

namespace platform {

NotificationCenter& NotificationCenter::defaultCenter() {
    static NeverDestroyed<NotificationCenter> center;
    return center.get();
}

Subscription NotificationCenter::addObserver(const QString& name, Handler handler) {
    return m_signals[name].observe(std::move(handler));
}

void NotificationCenter::post(const QString& name, const QVariant& object) const {
    if (const auto found = m_signals.find(name); found != m_signals.end()) found->second.emit(object);
}

} // namespace platform
