#pragma once

#include "platform/cloud/CKError.h"

#include <QtCore/QByteArray>
#include <QtCore/QUuid>

#include <compare>
#include <functional>
#include <vector>

namespace platform {

// How a user's private database is spoken to, whatever server keeps it.
//
// A database has zones, a zone has records by name. The user has one revision, a counter that every writing
// transaction increments, so that "everything after revision n" is exact: no row can appear below a revision
// that somebody has read. Each increment is signed with a random tag. A reader that names the tag of the
// revision where it stopped learns whether this is still the same history: after a restore from a backup, or
// on another server, it is not. One epoch is one history from its beginning.
//
// Revisions count all zones together. Calls block up to the connection's deadline, those of a file as
// long as its disk takes on top of that. One thread at a time.

struct ZoneRecord {
    QString name;
    QString type;
    qint64 revision = 0; // that wrote it last; not looked at when pushed
    bool isTombstone = false;
    QByteArray payload;
    std::vector<QByteArray> assets; // the hashes of what it refers to

    bool operator==(const ZoneRecord&) const = default;
};

// Where a reader stands: it has read every record of lower revisions, and of this one those up to and
// including `name`; all of them where the name is empty. 0 before everything.
struct ZonePosition {
    qint64 revision = 0;
    QString name;

    bool operator==(const ZonePosition&) const = default;

    std::strong_ordering operator<=>(const ZonePosition& other) const {
        if (revision != other.revision) return revision <=> other.revision;
        if (name.isEmpty() || other.name.isEmpty()) return name.isEmpty() <=> other.name.isEmpty();
        return name.compare(other.name) <=> 0;
    }
};

struct ZoneHead {
    QUuid epoch;         // null where nobody has ever written
    qint64 revision = 0; // of the user, zones together
    QUuid tag;           // of that revision
    qint64 horizon = 0;  // tombstones of the zone up to it may have been collected
};

// One page, read on one state of the database.
struct ZoneChanges {
    ZoneHead head;
    bool isKnownHistory = false;     // the reader's epoch, and its tag at its revision, are this server's
    std::vector<ZoneRecord> records; // in order of (revision, name)
    bool hasMore = false;            // else the reader has everything up to head.revision
    ZonePosition position;           // of a reader who has taken the page in
    QUuid tag;                       // of that position's revision
};

// A big text, known by the hash of its content as the pusher names it.
struct CloudAsset {
    QByteArray hash;
    QByteArray content;
};

// One writing transaction. It is carried out on top of what the pusher has seen, or not at all.
struct ZonePush {
    QString zone;
    QUuid epoch;                 // as seen; null together with newEpoch where the server has none
    QUuid newEpoch;              // of a history that begins here
    qint64 expectedRevision = 0; // as seen
    QUuid expectedTag;           // of that revision, as seen; null for 0
    QUuid tag;                   // of the revision that this makes; chosen by the pusher

    // A device signs in with the tag of its last push, or of the one before where it never learnt the
    // outcome. One that does not know either is a copy of the device that pushed.
    QUuid device;
    QUuid lastTag;
    QUuid unconfirmedTag;

    std::vector<ZoneRecord> records;
    std::vector<CloudAsset> assets;
    std::vector<QString> collected; // tombstones to be removed
    qint64 horizon = 0;             // of the zone from now on; 0 leaves it
};

enum class PushOutcome {
    Committed,
    Behind,     // others have written, or the history is another one: read first
    DeviceTaken // another device pushes under this one's name
};

struct PushResult {
    PushOutcome outcome = PushOutcome::Behind;
    qint64 revision = 0; // that it made
};

struct DeviceEntry {
    QUuid device;
    qint64 revision = 0;      // it has read the zone up to here
    qint64 secondsSilent = 0; // since it told so, by the server's clock
    QUuid lastTag;            // of its last push; null before the first
};

class CloudStore {
public:
    CloudStore() = default;
    virtual ~CloudStore() = default;
    CloudStore(const CloudStore&) = delete;
    CloudStore& operator=(const CloudStore&) = delete;

    // The user's revision, which is all that a device polls. 0 where nobody has ever written.
    virtual CloudResult<qint64> revision() = 0;

    // At most `limit` records after `position`. `tag` is the tag of the position's revision.
    virtual CloudResult<ZoneChanges> changes(const QString& zone, const QUuid& epoch,
                                             const ZonePosition& position, const QUuid& tag, int limit) = 0;
    virtual CloudResult<PushResult> push(const ZonePush& push) = 0;
    // UnknownItem where no record refers to it any more.
    virtual CloudResult<QByteArray> asset(const QByteArray& hash) = 0;

    // How far the device has read, which may be less than it was; makes its entry where there is none, also
    // where nobody has ever written. Does not count as a change.
    virtual CloudResult<void> reportDevice(const QString& zone, const QUuid& device, qint64 revision) = 0;
    virtual CloudResult<std::vector<DeviceEntry>> devices(const QString& zone) = 0;
    virtual CloudResult<void> forgetDevice(const QString& zone, const QUuid& device) = 0;

    virtual CloudResult<bool> hasZone(const QString& zone) = 0;
    virtual CloudResult<void> saveZone(const QString& zone) = 0;
    // All records of a type that are no tombstones, in order of their names. ZoneNotFound without the zone.
    virtual CloudResult<std::vector<ZoneRecord>> records(const QString& zone, const QString& type) = 0;
    // Writes one record over whatever is there. ZoneNotFound without the zone.
    virtual CloudResult<void> saveRecord(const QString& zone, const ZoneRecord& record) = 0;

    // Whether the server tells of writes by itself, or has to be polled alone.
    enum class Notifications { Pushed, None };
    // `observer` is called in the event loop of the calling thread, soon after others have written, and also
    // now and then for nothing.
    virtual CloudResult<Notifications> subscribe(std::function<void()> observer) = 0;

    // From any thread: the call that is under way and all later ones end soon, with NetworkFailure. A file's
    // call that is under way is not broken off; it waits at most the deadline for others' locks.
    virtual void interrupt() {}
};

} // namespace platform
