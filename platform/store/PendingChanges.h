#pragma once

#include "platform/store/ManagedObject.h"
#include "platform/store/SqliteStore.h"

#include <optional>

namespace platform {

// What a save or a merge did to the objects of a context.
struct ContextChanges {
    std::vector<std::shared_ptr<ManagedObject>> inserted;
    std::vector<std::shared_ptr<ManagedObject>> updated;
    std::vector<std::shared_ptr<ManagedObject>> deleted;

    bool isEmpty() const { return inserted.empty() && updated.empty() && deleted.empty(); }

    bool touches(const QString& entity) const;
};

// What a context has changed since its last save. An object that no save has written, or that was deleted and
// brought back, is inserted, and then nothing else. Main thread.
class PendingChanges {
public:
    explicit PendingChanges(std::shared_ptr<const ManagedObjectModel> model);

    bool isEmpty() const;

    bool isInserted(const ManagedObject& object) const { return m_inserted.contains(object.objectID()); }

    bool isDeleted(const QUuid& id) const { return m_deleted.contains(id); }

    // Whether a save would write this object's row, or something that refers to it anew.
    bool isChanged(const ManagedObject& object) const;
    bool isColumnChanged(const ManagedObject& object, qsizetype column) const;
    // Whether a membership was added or removed; nothing where it is as stored.
    std::optional<bool> membership(const JoinRow& row) const;

    void insert(const std::shared_ptr<ManagedObject>& object);
    // An object that the store turned out to hold: all its columns are written over the stored ones.
    void noteStored(ManagedObject& object);
    // An object that the store turned out to lack.
    void noteMissing(ManagedObject& object);
    void update(ManagedObject& object, qsizetype column);
    // As update(), of a text that is merged with what others write; `before` is what the change began with.
    void updateText(ManagedObject& object, qsizetype attribute, const QVariant& before);
    // What the pending text of an attribute was made from; nothing where that is not known.
    std::optional<QVariant> textBase(const ManagedObject& object, qsizetype attribute) const;
    void setTextBase(ManagedObject& object, qsizetype attribute, const QVariant& base);
    // The relation between the two was made or cut.
    void updateRelation(ManagedObject& source, qsizetype relationship, ManagedObject& target,
                        qsizetype inverse);

    // What the store turned out to say of a membership: the same as memory, or not.
    void noteMembershipStored(const JoinRow& row) { m_joins.remove(row); }

    void noteMembershipDiffers(const JoinRow& row, bool isMember) { m_joins.insert(row, isMember); }

    // The memberships that were added or removed.
    QList<JoinRow> memberships() const { return m_joins.keys(); }

    void remove(const std::shared_ptr<ManagedObject>& object);
    // Nothing about this object is to be written any more.
    void forget(const ManagedObject& object);
    // The store has none of its memberships.
    void forgetMemberships(const QUuid& id);

    // A save was tried and failed, and what it wrote may be in the file all the same.
    void noteFailedSave();

    // What keeps the changes from being written: an absent value that is required.
    std::optional<StoreError> missingValue() const;
    StoreChanges toWrite() const;
    // Everything is written: what it was. Empty afterwards.
    ContextChanges take();

    // The membership of two objects as their join table has it; nothing where the relation is no such table.
    std::optional<JoinRow> joinRow(const ManagedObject& source, qsizetype relationship,
                                   const ManagedObject& target) const;

private:
    std::shared_ptr<const ManagedObjectModel> m_model;
    QHash<QUuid, std::shared_ptr<ManagedObject>> m_inserted;
    QHash<ManagedObject*, ColumnSet> m_updated;
    QHash<const ManagedObject*, QHash<qsizetype, QVariant>> m_textBases; // of changed texts
    QHash<QUuid, std::shared_ptr<ManagedObject>> m_deleted;
    QHash<JoinRow, bool> m_joins; // true: must be there after the save

    QSet<QUuid> m_perhapsStored; // of the inserted objects, those whose row the store may hold
    bool m_joinsMayBeStored = false;
};

} // namespace platform
