#pragma once

#include "platform/mirror/Stamp.h"

#include <QtCore/QCborMap>
#include <QtCore/QCborValue>
#include <QtCore/QString>

#include <map>
#include <optional>

namespace platform {

// The last write of one property.
struct Register {
    Stamp stamp;
    // What was written; null for an absent value. A to-one relationship holds the 16 bytes of its target's
    // identity. Nothing at all where the object's row in the local store has the value: such a register never
    // leaves the store (MirrorStorage fills it in).
    std::optional<QCborValue> value;
    // Of a text that is merged: every write that went into it, its own included. Empty for other properties,
    // whose later write simply wins.
    VersionVector seen;

    bool operator==(const Register&) const = default;
};

// The last word on one membership of a to-many relationship.
struct Element {
    Stamp stamp;
    bool isMember = false;

    bool operator==(const Element&) const = default;
};

// All that is known of one object on every device: a value that joins with any other state of the same
// object.
//
// Join is commutative, associative and idempotent, so states may arrive twice, late and out of order. It does
// not merge texts: of two writes that have not seen each other it keeps the later one, and the mirror, which
// has the texts at hand, sees to the other.
//
// A deletion says which writes its device had seen. The object is dead if the deletions together saw every
// write, and alive if one of them is news to them all; so an edit that was made elsewhere brings it back,
// with everything it had. Memberships and references to a dead object stay as they were written, and whoever
// shows them leaves them out for as long as it is dead.
struct ObjectState {
    QString entity;
    std::map<QString, Register> registers;
    std::map<QString, std::map<QUuid, Element>> sets; // of a to-many relationship's owning end, by target
    // Every write that somebody made, those included that others have replaced; not the merges of texts,
    // which are nobody's and keep nothing alive.
    VersionVector history;
    VersionVector deletionSeen; // empty: never deleted
    // The hybrid time of the latest deletion, for the age of a tombstone alone.
    std::uint64_t deletionTime = 0;
    // What a newer program has put into the record beside these; kept as it is, in order of the keys.
    QCborMap unknown;

    // By itself. An object is also alive for as long as another that is alive belongs to it (a part of a
    // whole that was deleted): who has the other objects at hand decides that.
    bool isAlive() const;

    // Of all that stands; time 0 where there is nothing.
    Stamp latest() const;
    VersionVector writes() const;         // the history, and the merges that stand
    VersionVector standingWrites() const; // those that the registers and sets still tell of

    void write(const QString& property, const Stamp& stamp, QCborValue value);
    // As write(), for a text that is merged.
    void writeText(const QString& property, const Stamp& stamp, QCborValue value);
    // As writeText(), by nobody's hand.
    void mergeText(const QString& property, const Stamp& stamp, QCborValue value);
    void setMember(const QString& relationship, const QUuid& target, const Stamp& stamp, bool isMember);
    // A write without a value, which brings a dead object back.
    void touch(const Stamp& stamp);
    void markDeleted(std::uint64_t time);

    void join(const ObjectState& other);
    // Writes of `device` later than `time` become the writes of `newDevice` at the same times.
    void renameWrites(const QUuid& device, std::uint64_t time, const QUuid& newDevice);

    bool operator==(const ObjectState&) const = default;
};

} // namespace platform
