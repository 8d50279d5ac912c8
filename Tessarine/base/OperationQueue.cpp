#include "Tessarine/base/OperationQueue.h"

#include <pthread.h>

namespace tessarine {

namespace {

constexpr std::size_t longestThreadName = 15; // Linux keeps no more

} // namespace

std::shared_ptr<Operation> OperationQueue::add(Work work) {
    auto operation = std::make_shared<Operation>();
    const std::scoped_lock lock(m_mutex);
    m_waiting.push_back({operation, std::move(work)});
    if (!m_worker.joinable()) m_worker = std::jthread([this](const std::stop_token& stop) { run(stop); });
    m_added.notify_one();
    return operation;
}

void OperationQueue::cancelAllOperations() {
    const std::scoped_lock lock(m_mutex);
    if (m_running) m_running->cancel();
    for (const Entry& entry : m_waiting)
        entry.operation->cancel();
}

void OperationQueue::run(const std::stop_token& stop) {
    pthread_setname_np(pthread_self(), m_name.substr(0, longestThreadName).c_str());
    for (Entry entry; takeNext(stop, entry); entry = {})
        entry.work(entry.operation);
}

// False when the queue ends and nothing waits any more.
bool OperationQueue::takeNext(const std::stop_token& stop, Entry& entry) {
    std::unique_lock lock(m_mutex);
    m_running.reset();
    if (!m_added.wait(lock, stop, [this] { return !m_waiting.empty(); })) return false;
    entry = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_running = entry.operation;
    return true;
}

} // namespace tessarine
