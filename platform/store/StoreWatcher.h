#pragma once

#include "platform/store/StoreError.h"

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QTimer>

#include <functional>

namespace platform {

// Calls `merge` soon after somebody has written the store's file, and again for as long as it fails with
// Busy. Costs nothing while nobody writes. Main thread.
class StoreWatcher {
public:
    StoreWatcher(const QString& path, std::function<StoreResult<void>()> merge);

private:
    QFileSystemWatcher m_files;
    QTimer m_delay;
};

} // namespace platform
