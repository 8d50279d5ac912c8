#include "platform/cloud/CloudQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

#include <utility>

namespace platform {

namespace {

// Queued invocations have no priorities; events have.
class WorkEvent : public QEvent {
public:
    static Type kind() {
        static const int registered = registerEventType();
        return static_cast<Type>(registered);
    }

    explicit WorkEvent(std::function<void()> work)
        : QEvent(kind())
        , m_work(std::move(work)) {}

    void run() const { m_work(); }

private:
    std::function<void()> m_work;
};

class Receiver : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() != WorkEvent::kind()) return QObject::event(event);
        static_cast<WorkEvent*>(event)->run();
        return true;
    }
};

int priorityOf(QualityOfService qualityOfService) {
    return qualityOfService == QualityOfService::UserInitiated ? Qt::HighEventPriority
                                                               : Qt::NormalEventPriority;
}

} // namespace

CloudQueue::CloudQueue()
    : m_receiver(std::make_unique<Receiver>()) {
    m_thread.setObjectName(QStringLiteral("Cloud"));
    m_receiver->moveToThread(&m_thread);
}

CloudQueue::~CloudQueue() {
    stop();
}

void CloudQueue::post(std::function<void()> work, QualityOfService qualityOfService) {
    const std::lock_guard lock(m_mutex);
    if (m_isStopped) return;
    if (!m_thread.isRunning()) m_thread.start();
    auto event = std::make_unique<WorkEvent>(std::move(work));
    QCoreApplication::postEvent(m_receiver.get(), event.release(), priorityOf(qualityOfService));
}

void CloudQueue::stop(std::function<void()> last) {
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_isStopped, true) || !m_thread.isRunning()) return;
        QCoreApplication::removePostedEvents(m_receiver.get(), WorkEvent::kind());
        auto event = std::make_unique<WorkEvent>([this, last = std::move(last)] {
            if (last) last();
            m_thread.quit();
        });
        QCoreApplication::postEvent(m_receiver.get(), event.release());
    }
    m_thread.wait();
}

} // namespace platform
