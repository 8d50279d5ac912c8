#pragma once

#include "Tessarine/base/MainExecutor.h"
#include "Tessarine/base/OperationQueue.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>
#include <string>
#include <utility>

namespace tessarine::editor {

// Work on a thread of its own, one after the other, whose results come back to the main thread. Its end waits
// for what runs.
class BackgroundWork {
public:
    BackgroundWork(std::string name, std::shared_ptr<MainExecutor> mainExecutor)
        : m_mainExecutor(std::move(mainExecutor))
        , m_queue(std::move(name)) {}

    // done(work()) on the main thread, unless the receiver is gone then. Called on the main thread.
    template <class Work, class Done>
    void start(QObject* receiver, Work work, Done done) {
        m_queue.add([executor = m_mainExecutor, receiver = QPointer<QObject>(receiver),
                     work = std::move(work), done = std::move(done)](const auto&) mutable {
            // The pointer is only passed on here: whether somebody is behind it is for the main thread to
            // see.
            executor->post(
                [receiver = std::move(receiver), result = work(), done = std::move(done)]() mutable {
                    if (receiver) done(std::move(result));
                });
        });
    }

private:
    const std::shared_ptr<MainExecutor> m_mainExecutor;
    OperationQueue m_queue; // last: it ends before what it uses
};

} // namespace tessarine::editor
