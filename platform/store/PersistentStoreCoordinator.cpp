#include "platform/store/PersistentStoreCoordinator.h"

#include "platform/store/MappingModel.h"
#include "platform/store/SqliteStore.h"

namespace platform {

StoreResult<StoreMetadata> PersistentStoreCoordinator::metadata(const QString& path) {
    return SqliteStore::metadata(path);
}

bool PersistentStoreCoordinator::isCompatible(const StoreMetadata& metadata) const {
    return metadata.modelHash == m_model->versionHash() ||
           MappingModel::infer(metadata.entities, m_model->entities()).has_value();
}

} // namespace platform
