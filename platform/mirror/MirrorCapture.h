#pragma once

#include "platform/mirror/HybridClock.h"
#include "platform/mirror/MirrorShape.h"
#include "platform/store/ChangeCapture.h"

#include <QtCore/QUuid>

#include <functional>

namespace platform {

// Writes every save of a context into the states of its objects and into the outbox, in the save's own
// transaction. Objects that were written while nobody captured, in a store from before or by a context
// without a capture, become new ones to the mirror when the store is opened. The thread of the store.
class MirrorCapture final : public ChangeCapture {
public:
    // `device` is the name of this device in a store that has none yet.
    MirrorCapture(std::shared_ptr<const ManagedObjectModel> model, std::function<WallTime()> wall,
                  const QUuid& device);

    StoreResult<void> begin(SqliteConnection& connection) override;
    StoreResult<void> capture(SqliteConnection& connection, const StoreChanges& changes) override;

private:
    StoreResult<void> seed(SqliteConnection& connection);
    StoreResult<void> adoptModel(SqliteConnection& connection);

    MirrorShape m_shape;
    std::function<WallTime()> m_wall;
    QUuid m_device;
};

} // namespace platform
