#pragma once

#include "platform/cloud/CloudStore.h"
#include "platform/mirror/ObjectState.h"
#include "platform/store/StoreError.h"

#include <functional>
#include <optional>
#include <vector>

namespace platform {

// An object of the local store with what its mirroring needs.
struct MirroredObject {
    // Merged texts as the server has them, of properties that were changed here since: what a merge compares
    // both sides with, provided that both have seen it. A local write to a text keeps the register that it
    // replaces here, where none is kept yet and revision is not 0.
    std::map<QString, Register> bases;
    ObjectState state;
    qint64 change = 0;   // its place in the outbox, which grows with every local change; 0: as on the server
    qint64 revision = 0; // of the server's record that is in the state; 0: none ever was
    qint64 reading = 0;  // the full reading that met it last; see MirrorProgress
    // The latest time of this device's own writes on the object that the server has; later ones are unsent.
    // The mirror alone sets it.
    std::uint64_t sent = 0;
    // A record of the server that this program cannot read, of a newer form. While it is there the object is
    // neither pushed nor changed by others; local use goes on.
    QByteArray parked;
};

// Where the mirror of one zone stands; in the same file as the objects.
struct MirrorProgress {
    QUuid device;
    std::uint64_t clock = 0; // the greatest time this device has given or taken for its own
    QUuid epoch;
    ZonePosition position;
    QUuid tag; // of the position's revision
    QUuid lastTag;
    // Of the pushes since, oldest first, whose outcome was never learnt.
    std::vector<QUuid> unconfirmedTags;
    // Full readings, which begin at position 0, are numbered: at the end of one the objects of a lower
    // reading are not on the server.
    qint64 reading = 0;
    bool isReadingFully = false;
    bool isReconciling = false; // what is not on the server is then offered anew, not taken for collected
    qint64 horizon = 0;         // of the server, as last seen

    bool operator==(const MirrorProgress&) const = default;
};

// The local side of a mirror: objects, outbox and progress, changed in transactions. All calls but
// transaction() are made inside one. Local edits come in between transactions, from another connection of the
// same file; each stamps what it changes, adds it to the outbox, and keeps the bases, in its own transaction.
class MirrorStorage {
public:
    MirrorStorage() = default;
    virtual ~MirrorStorage() = default;
    MirrorStorage(const MirrorStorage&) = delete;
    MirrorStorage& operator=(const MirrorStorage&) = delete;

    // All or nothing, durable when it returns.
    virtual StoreResult<void> transaction(const std::function<StoreResult<void>()>& body) = 0;

    virtual StoreResult<MirrorProgress> progress() = 0;
    virtual StoreResult<void> setProgress(const MirrorProgress& progress) = 0;

    // With every value that is known.
    virtual StoreResult<std::optional<MirroredObject>> object(const QUuid& id) = 0;
    // Also brings what the user sees to what the state says, as far as the local model knows it.
    virtual StoreResult<void> put(const QUuid& id, const MirroredObject& object) = 0;
    // All that is known of an object, which is dead by itself or has no entity and no writes.
    virtual StoreResult<void> remove(const QUuid& id) = 0;

    // Whether the user sees the object.
    virtual StoreResult<bool> isShown(const QUuid& id) = 0;
    virtual StoreResult<qint64> shownCount() = 0;

    // The number of the next local change.
    virtual StoreResult<qint64> nextChange() = 0;
    // Objects with a change, oldest change first, parked ones left out.
    virtual StoreResult<std::vector<QUuid>> outbox(qsizetype limit) = 0;
    // Objects without a change that were on the server once, of a reading below this one.
    virtual StoreResult<std::vector<QUuid>> notMetBy(qint64 reading) = 0;
    // Objects that are dead by themselves, without a change, with 0 < revision <= `upTo`.
    virtual StoreResult<std::vector<QUuid>> deadUpTo(qint64 upTo) = 0;
    virtual StoreResult<std::vector<QUuid>> parked() = 0;
    virtual StoreResult<std::vector<QUuid>> all() = 0;
};

} // namespace platform
