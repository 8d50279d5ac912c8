#pragma once

#include "platform/foundation/Observable.h"
#include "platform/store/ManagedObject.h"
#include "platform/store/PendingChanges.h"
#include "platform/store/SqliteStore.h"
#include "platform/store/StoreError.h"

#include <QtCore/QHash>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

class StoreWatcher;

struct SortDescriptor {
    qsizetype attribute = 0;
    Qt::SortOrder order = Qt::AscendingOrder;
};

struct FetchRequest {
    QString entity;
    std::vector<SortDescriptor> sortDescriptors;
    std::function<bool(const ManagedObject&)> predicate; // none takes all
    std::optional<qsizetype> limit;
};

// The main context: all objects of one store, with the changes that no save has written yet.
//
// The object graph is read whole when the context gets its store, but for the values that are loaded on
// demand: these are read when asked for, and those that are as stored are given up again when they grow too
// many. A failed save writes nothing and keeps every change pending, so the next save that works carries
// them. What another connection wrote is merged property by property: a property with a pending change keeps
// it, but for a text that the model wants merged: that takes the other's lines in. An object with pending
// changes that the other deleted is written anew. Main thread.
class ManagedObjectContext {
public:
    explicit ManagedObjectContext(std::shared_ptr<const ManagedObjectModel> model);
    ~ManagedObjectContext();
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    const ManagedObjectModel& model() const { return *m_model; }

    // Reads the store's objects and keeps the store for the saves. To be called once, before anything is
    // inserted. On an error the context goes on without a store: every fetch yields what was inserted, and
    // every save fails with NotLoaded.
    StoreResult<void> setStore(std::unique_ptr<SqliteStore> store);

    bool hasStore() const { return m_store != nullptr; }

    // Takes a detached object in. An object of this context is left as it is.
    void insert(const std::shared_ptr<ManagedObject>& object);
    // Deletes the object and, by the delete rules, what hangs on it. A second delete has no effect.
    void deleteObject(ManagedObject& object);

    // Pending objects included, pending deletions not. Without sort descriptors in order of creation.
    std::vector<std::shared_ptr<ManagedObject>> fetch(const FetchRequest& request) const;

    bool hasChanges() const { return !m_pending.isEmpty(); }

    // One transaction with all that changed, after a merge of what others wrote before; touches no page when
    // nothing did.
    StoreResult<void> save();

    // Takes in what other connections have written. Error: Busy where one of them is writing right now.
    StoreResult<void> mergeChanges();
    // Whether that happens by itself, soon after another connection, of whatever process, has written.
    void setAutomaticallyMergesChangesFromParent(bool automatically);

    // `keep` is given the texts that a merge has to leave out: another connection wrote `text` into an
    // attribute that was changed here meanwhile, in the same lines. It may insert objects.
    using KeepText = std::function<void(ManagedObject& object, qsizetype attribute, const QString& text)>;

    void setKeepText(KeepText keep) { m_keepText = std::move(keep); }

    // Told after each save and each merge that changed something.
    Subscription onChange(std::function<void(const ContextChanges&)> observer);

private:
    friend class ManagedObject;
    friend class RemoteMerge;

    // Of a managed object, about itself. With a change the object is read whole, so that it can be written
    // anew if another connection deletes it meanwhile.
    void makeWhole(const ManagedObject& object);

    void noteUpdate(ManagedObject& object, qsizetype attribute, const QVariant& before);

    void noteRelationChange(ManagedObject& source, qsizetype relationship, ManagedObject& target,
                            qsizetype inverse) {
        m_pending.updateRelation(source, relationship, target, inverse);
    }

    StoreResult<QVariant> fulfilFault(const ManagedObject& object, qsizetype attribute);

    void adopt(std::shared_ptr<ManagedObject> object);
    void release(ManagedObject& object);
    std::shared_ptr<ManagedObject> makeObject(StoreRow row) const;
    StoreResult<void> loadGraph(SqliteStore& store);

    void noteLoaded(const ManagedObject& object);
    void giveUpLoadedValues(const ManagedObject& inUse);

    std::shared_ptr<const ManagedObjectModel> m_model;
    std::unique_ptr<SqliteStore> m_store;
    std::unique_ptr<StoreWatcher> m_watcher;

    // By entity and by the order in which they came in, which is what a fetch without sorting yields.
    std::map<QString, std::map<std::uint64_t, std::shared_ptr<ManagedObject>>> m_objects;
    QHash<QUuid, ManagedObject*> m_byID;
    std::uint64_t m_nextSequence = 0;

    PendingChanges m_pending;
    KeepText m_keepText;

    // Objects with values in memory that are loaded on demand, the size of these in bytes, and the size from
    // which on those that are as stored are given up.
    static constexpr qsizetype loadedBudget = 8'000'000;
    std::vector<std::weak_ptr<const ManagedObject>> m_loaded;
    qsizetype m_loadedBytes = 0;
    qsizetype m_loadedLimit = loadedBudget;

    Signal<ContextChanges> m_changes;
};

} // namespace platform
