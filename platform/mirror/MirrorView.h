#pragma once

#include "platform/mirror/MirrorRows.h"
#include "platform/mirror/MirrorStorage.h"
#include "platform/mirror/MirrorTable.h"

#include <deque>

namespace platform {

// Keeps what the user sees, the rows of a store, at what the states of the objects say.
//
// An object is shown where the local model can hold it, every required value being there and every value of
// its type, and it is alive: by itself, or because a shown part of it is (a part: an object at the other end
// of a cascading relationship that refers to it). References and memberships are shown where their target is.
// So each object that comes or goes may change others, and these are brought up to date as well.
//
// The entry of a shown object leaves out the values of attributes that are in its row. One transaction long.
class MirrorView {
public:
    MirrorView(SqliteConnection& connection, const MirrorShape& shape);

    // Replaces the object's entry. Attributes without a value are as in the row.
    StoreResult<void> put(const QUuid& id, MirroredObject object);

    // Brings the object up to date with its entry, and whoever depends on whether it is shown.
    StoreResult<void> settle(const QUuid& id);

    // All of these at once.
    StoreResult<void> refresh(const std::vector<QUuid>& ids);
    // Settles what saves have left (MirrorTable::unsettled).
    StoreResult<void> settleNoted();
    // Of an object that is dead by itself.
    StoreResult<void> remove(const QUuid& id);

    // With every value that is known.
    StoreResult<std::optional<MirroredObject>> object(const QUuid& id);

    StoreResult<bool> isShown(const QUuid& id);

    // Puts the values of a row in the place of missing ones, and takes them out again.
    static void fillIn(const EntityShape& shape, const MirrorRow& row, ObjectState& state);
    static void leaveOut(const EntityShape& shape, const MirrorRow& row, ObjectState& state);

private:
    // What the state would show, with targets that may not be there; nothing where the model cannot hold it.
    static std::optional<MirrorRow> fittingRow(const EntityShape& shape, const ObjectState& state,
                                               const std::optional<MirrorRow>& before);
    // As fittingRow(), of an object that is alive.
    StoreResult<std::optional<MirrorRow>> rowToShow(const EntityShape& shape, const QUuid& id,
                                                    const ObjectState& state,
                                                    const std::optional<MirrorRow>& before);
    // Whether a part keeps the object alive, or a part of a part. `asked` are those that the question has
    // come past.
    StoreResult<bool> isKept(const EntityShape& shape, const QUuid& id, std::set<QUuid>& asked);
    StoreResult<std::vector<QUuid>> shownParts(const EntityShape& shape, const QUuid& id);

    // Whether the object's entry in the file is what is given.
    enum class Entry { Stored, New };
    enum class Dependents { IfChanged, Always };
    StoreResult<void> bring(const QUuid& id, MirroredObject object, Entry entry, Dependents dependents);
    StoreResult<void> bringStored(const QUuid& id, Dependents dependents);
    StoreResult<void> show(const EntityShape& shape, const QUuid& id, MirrorRow row,
                           const std::optional<MirrorRow>& before, ObjectState& state);
    // Adds to `missing` the members that are not shown.
    StoreResult<void> showMembers(const EntityShape& shape, const EntityShape::Set& set, const QUuid& id,
                                  const ObjectState& state, std::set<QUuid>& missing);
    StoreResult<void> hideShown(const QUuid& id);
    StoreResult<void> hide(const EntityShape& shape, const QUuid& id);
    StoreResult<void> setLinks(const QUuid& id, const std::set<QUuid>& targets);

    // The objects that this one is a part of.
    static std::vector<QUuid> wholesOf(const EntityShape& shape, const std::optional<MirrorRow>& row);
    StoreResult<void> queueLinked(const QUuid& id);
    void queue(const std::vector<QUuid>& ids);
    StoreResult<void> drain();

    const MirrorShape* m_shape;
    MirrorTable m_table;
    MirrorRows m_rows;
    std::deque<QUuid> m_queue;
    std::set<QUuid> m_queued;
};

} // namespace platform
