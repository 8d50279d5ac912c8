#pragma once

#include "platform/mirror/MirroredZone.h"
#include "platform/store/ManagedObjectModel.h"

#include <memory>

namespace platform {

class SqliteMirrorStorage;

// The objects of a store whose saves are captured. Its contexts learn of what comes as of any other writer.
class StoreZone final : public MirroredZone {
public:
    StoreZone(QString zone, MirrorPolicy policy, QString storePath,
              std::shared_ptr<const ManagedObjectModel> model);
    ~StoreZone() override;

    StoreResult<MirrorStorage*> open() override;
    void close() override;

private:
    QString m_storePath;
    std::shared_ptr<const ManagedObjectModel> m_model;
    std::unique_ptr<SqliteMirrorStorage> m_storage;
};

} // namespace platform
