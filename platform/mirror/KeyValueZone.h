#pragma once

#include "platform/mirror/HybridClock.h"
#include "platform/mirror/MirroredZone.h"
#include "platform/store/UbiquitousKeyValueStore.h"

#include <functional>
#include <memory>

namespace platform {

class SqliteMirrorStorage;

// The settings of a key-value store, as the properties of one object: of each key the last write wins.
//
// The store itself knows no clocks. Beside its file lie "NAME.mirror.sqlite", with the object's state and
// where the mirror stands, and "NAME.known.json", with the values on which settings and state have agreed
// last. A setting that is not as known was set here; a state that is not came from elsewhere. The files are
// written one after the other, and a crash between them changes nothing in that.
class KeyValueZone final : public MirroredZone {
public:
    // `values` outlives this.
    KeyValueZone(QString zone, UbiquitousKeyValueStore& values, std::function<WallTime()> wall);
    ~KeyValueZone() override;

    StoreResult<MirrorStorage*> open() override;
    void close() override;

    StoreResult<void> gather() override;

    StoreResult<void> handOn() override { return gather(); }

private:
    // The object's state, with what was set here since.
    StoreResult<ObjectState> stateWithChanges();
    StoreResult<void> stampChanges(MirroredObject& object);
    void apply(const ObjectState& state);

    UbiquitousKeyValueStore& m_values;
    QString m_storePath;
    UbiquitousKeyValueStore m_known;
    std::function<WallTime()> m_wall;
    std::unique_ptr<SqliteMirrorStorage> m_storage;
};

} // namespace platform
