#pragma once

#include "platform/store/ManagedObjectModel.h"
#include "platform/store/StoreMetadata.h"

namespace platform {

// What a container knows of stores before it loads them. Main thread.
class PersistentStoreCoordinator {
public:
    explicit PersistentStoreCoordinator(std::shared_ptr<const ManagedObjectModel> model)
        : m_model(std::move(model)) {}

    const std::shared_ptr<const ManagedObjectModel>& managedObjectModel() const { return m_model; }

    // As of SqliteStore::metadata().
    static StoreResult<StoreMetadata> metadata(const QString& path);

    // Whether the model opens such a store: as it is, or after a migration whose mapping can be inferred.
    bool isCompatible(const StoreMetadata& metadata) const;

private:
    std::shared_ptr<const ManagedObjectModel> m_model;
};

} // namespace platform
