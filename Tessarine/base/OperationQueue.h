#pragma once

#include "Tessarine/base/Operation.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace tessarine {

// Work for one thread of its own, done one after the other in the order of adding.
//
// Cancelled work still runs: it is handed its operation and looks at that itself, as it has to tell its end.
// The thread starts with the first work. The queue's end cancels all and waits for what runs, so it must not
// come from within a work. Thread: any.
class OperationQueue {
public:
    using Work = std::move_only_function<void(const std::shared_ptr<const Operation>&)>;

    // The name is also the thread's, as far as the system keeps it.
    explicit OperationQueue(std::string name)
        : m_name(std::move(name)) {}

    OperationQueue(const OperationQueue&) = delete;
    OperationQueue& operator=(const OperationQueue&) = delete;

    ~OperationQueue() { cancelAllOperations(); }

    const std::string& name() const { return m_name; }

    std::shared_ptr<Operation> add(Work work);

    // Both what runs and what waits.
    void cancelAllOperations();

private:
    struct Entry {
        std::shared_ptr<Operation> operation;
        Work work;
    };

    void run(const std::stop_token& stop);
    bool takeNext(const std::stop_token& stop, Entry& entry);

    const std::string m_name;

    std::mutex m_mutex; // guards what follows
    std::condition_variable_any m_added;
    std::deque<Entry> m_waiting;
    std::shared_ptr<Operation> m_running;

    std::jthread m_worker; // last: it ends before what it uses
};

} // namespace tessarine
