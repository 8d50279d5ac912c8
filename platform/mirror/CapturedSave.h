#pragma once

#include "platform/mirror/HybridClock.h"
#include "platform/mirror/MirrorRows.h"
#include "platform/mirror/MirrorTable.h"
#include "platform/store/SqliteStore.h"

#include <map>
#include <set>

namespace platform {

// One save, written into the states of the objects that it changes. In the transaction of the save, before
// its rows are written.
//
// A write is what differs from what the row or the state has. What only follows from another object's
// deletion is none: a reference or a membership whose other end is deleted stays as it was written, and is
// shown again if that end comes back.
class CapturedSave {
public:
    CapturedSave(SqliteConnection& connection, const MirrorShape& shape, const Stamp& latest, WallTime wall);

    StoreResult<void> capture(const StoreChanges& changes);

    // An entry for an object whose row has none, every property written now.
    StoreResult<void> seed(const EntityShape& shape, const QUuid& id);

    // Writes the entries that changed, each with a place in the outbox, and the clock.
    StoreResult<void> finish();

private:
    struct Entry {
        MirroredObject object;
        std::optional<Stamp> stamp; // of its writes in this save
        bool isChanged = false;
    };

    StoreResult<Entry*> find(const QUuid& id);
    // The entry of an object that has a row; seeded where there is none.
    StoreResult<Entry*> entryOf(const EntityShape& shape, const QUuid& id);
    const Stamp& stampOf(Entry& entry);

    StoreResult<void> captureInsert(const ManagedObject& object);
    StoreResult<void> captureInsertOver(const EntityShape& shape, const ManagedObject& object, Entry& entry);
    StoreResult<void> captureUpdate(const ManagedObject& object, const ColumnSet& columns);
    StoreResult<void> captureMembership(const JoinRow& row, bool isMember);
    StoreResult<void> captureDeletion(const ManagedObject& object);

    // The register that it replaces has its value.
    void writeAttribute(Entry& entry, const AttributeDescription& attribute);
    void writeReference(Entry& entry, const EntityShape::Reference& reference, const QUuid& target);
    // The target as the user sees it.
    StoreResult<QUuid> shownTarget(const Entry& entry, const EntityShape::Reference& reference);
    StoreResult<void> partWithMembers(const EntityShape& shape, const QUuid& id, Entry& entry);
    // A part left the object, which may be alive for nothing but its parts.
    StoreResult<void> keepAlive(const QUuid& whole);
    StoreResult<void> noteReferrers(const EntityShape& shape, const QUuid& id);

    const MirrorShape* m_shape;
    MirrorTable m_table;
    MirrorRows m_rows;
    QUuid m_device;
    HybridClock m_clock;
    WallTime m_wall;

    std::map<QUuid, Entry> m_entries;
    const StoreChanges* m_changes = nullptr;
    std::set<QUuid> m_deleted;
};

} // namespace platform
