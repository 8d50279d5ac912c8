#include "platform/mirror/CloudMirror.h"

#include "platform/mirror/MirrorWorker.h"

namespace platform {

namespace {

// What the end of the program may wait for the cloud.
constexpr unsigned long patienceAtEnd = 1'500; // milliseconds

} // namespace

CloudMirror::CloudMirror(AccountReader readAccount, StoreOpener open, MirroredZones zones,
                         std::function<void(const MirrorStatus&)> onStatus)
    : m_worker(std::make_unique<MirrorWorker>(std::move(readAccount), std::move(open), std::move(zones),
                                              std::move(onStatus))) {
    m_thread.setObjectName(QStringLiteral("CloudMirror"));
    m_worker->moveToThread(&m_thread);
    m_thread.start();
    m_worker->post(MirrorWorker::Wake::Foreground);
}

CloudMirror::~CloudMirror() {
    m_worker->postFinish();
    if (m_thread.wait(patienceAtEnd)) return;
    m_worker->interrupt();
    m_thread.wait();
}

void CloudMirror::noteLocalChange() {
    m_worker->post(MirrorWorker::Wake::LocalChange);
}

void CloudMirror::noteForeground() {
    m_worker->post(MirrorWorker::Wake::Foreground);
}

void CloudMirror::noteAccountChange() {
    m_worker->post(MirrorWorker::Wake::AccountChange);
}

} // namespace platform
