#include "platform/store/StoreWatcher.h"

namespace platform {

namespace {

// A commit writes its pages one after the other and holds the lock until it is through.
constexpr int delayMilliseconds = 20;

} // namespace

StoreWatcher::StoreWatcher(const QString& path, std::function<StoreResult<void>()> merge) {
    m_delay.setSingleShot(true);
    m_delay.setInterval(delayMilliseconds);
    m_files.addPath(path);
    QObject::connect(&m_files, &QFileSystemWatcher::fileChanged, &m_delay, [this] {
        // Writes that go on and on must not put the merge off for ever.
        if (!m_delay.isActive()) m_delay.start();
    });
    QObject::connect(&m_delay, &QTimer::timeout, &m_delay, [this, merge = std::move(merge)] {
        if (const auto merged = merge(); !merged && merged.error().kind == StoreError::Kind::Busy)
            m_delay.start();
    });
}

} // namespace platform
