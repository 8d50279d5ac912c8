#pragma once

#include "platform/store/ManagedObjectContext.h"

namespace platform {

// Brings what other connections wrote into a context. A property with a pending change keeps the value in
// memory, but a text that the model wants merged is merged. An object that the others deleted stays where it
// has pending changes, and the next save writes it anew; the others' change of an object that is deleted here
// is left alone.
class RemoteMerge {
public:
    explicit RemoteMerge(ManagedObjectContext& context)
        : m_context(&context) {}

    // What it did to the context's objects.
    ContextChanges apply(const RemoteChanges& remote);

private:
    void applyObjects(const RemoteChanges& remote);
    void applyMemberships(const RemoteChanges& remote);
    void applyDeletion(const QUuid& id);
    void discard(ManagedObject& object);
    void takeIn(const StoreRow& row);
    void applyRow(const StoreRow& row);
    void applyValue(ManagedObject& object, qsizetype attribute, const QVariant& value);
    // A text that was changed here and, unless the store still has what the change began with, elsewhere.
    void mergeText(ManagedObject& object, qsizetype attribute, const QVariant& stored);
    void applyToOne(ManagedObject& object, qsizetype relationship, const QUuid& targetID);
    // Cuts what the store has no membership for; `relationship` has a join table, of either end.
    void cutJoins(ManagedObject& object, qsizetype relationship, const QSet<JoinRow>& stored);
    void applyJoin(const JoinRow& row);
    void noteUpdated(ManagedObject& object);

    ManagedObjectContext* m_context;
    ContextChanges m_changes;
    QSet<ManagedObject*> m_updated; // the members of m_changes.updated
    QSet<ManagedObject*> m_kept;    // objects that go over the stored ones as they are

    // Texts of the others that are in no object now.
    struct LeftOut {
        std::shared_ptr<ManagedObject> object;
        qsizetype attribute;
        QString text;
    };

    std::vector<LeftOut> m_leftOut;
    QSet<QUuid> m_renewed; // objects that were deleted and written anew since the last merge
};

} // namespace platform
