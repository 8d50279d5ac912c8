#pragma once

#include "platform/foundation/Observable.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <functional>
#include <map>

namespace platform {

// Tells whoever asked for a name that something happened, where neither side knows the other. Main thread.
// Where the observer knows the observed, a Signal is better.
class NotificationCenter {
public:
    using Handler = std::function<void(const QVariant& object)>;

    static NotificationCenter& defaultCenter();

    // Observers of one name are told in the order in which they came. One may end its own observation or
    // another's while it is told; one that is added meanwhile hears of the next post.
    Subscription addObserver(const QString& name, Handler handler);

    // Returns when all observers were told. A null `object` means that the notification carries none.
    void post(const QString& name, const QVariant& object = {}) const;

private:
    std::map<QString, Signal<QVariant>> m_signals;
};

} // namespace platform
