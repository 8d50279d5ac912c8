#pragma once

#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <mutex>

namespace platform {

// How soon work of the cloud's queue gets its turn.
enum class QualityOfService { Default, UserInitiated };

// One thread with an event loop, started by its first work. Work runs one at a time, user-initiated work
// ahead of what waits beside it. Made and stopped on one thread; post() from any.
class CloudQueue {
public:
    CloudQueue();
    // Stops.
    ~CloudQueue();
    CloudQueue(const CloudQueue&) = delete;
    CloudQueue& operator=(const CloudQueue&) = delete;

    // Runs `work` later, unless the queue was stopped.
    void post(std::function<void()> work, QualityOfService qualityOfService = QualityOfService::Default);

    // Ends the thread after the work that is running now and `last`; everything else is dropped. Blocks until
    // then.
    void stop(std::function<void()> last = {});

private:
    std::mutex m_mutex; // guards these; held for moments only
    bool m_isStopped = false;
    std::unique_ptr<QObject> m_receiver;

    QThread m_thread;
};

} // namespace platform
