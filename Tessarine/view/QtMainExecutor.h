#pragma once

#include "Tessarine/base/MainExecutor.h"

#include <QtCore/QObject>

namespace tessarine {

// The event loop of the thread that makes it, which is the main one. What is still queued when it ends is
// dropped.
class QtMainExecutor final : public MainExecutor {
public:
    void post(Task task) override;

private:
    QObject m_receiver;
};

} // namespace tessarine
