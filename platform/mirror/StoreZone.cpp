#include "platform/mirror/StoreZone.h"

#include "platform/mirror/SqliteMirrorStorage.h"

namespace platform {

StoreZone::StoreZone(QString zone, MirrorPolicy policy, QString storePath,
                     std::shared_ptr<const ManagedObjectModel> model)
    : MirroredZone(std::move(zone), std::move(policy))
    , m_storePath(std::move(storePath))
    , m_model(std::move(model)) {}

StoreZone::~StoreZone() = default;

StoreResult<MirrorStorage*> StoreZone::open() {
    if (!m_storage) {
        auto opened = SqliteMirrorStorage::open(m_storePath, m_model);
        if (!opened) return std::unexpected(opened.error());
        m_storage = std::move(*opened);
    }
    return m_storage.get();
}

void StoreZone::close() {
    m_storage.reset();
}

} // namespace platform
