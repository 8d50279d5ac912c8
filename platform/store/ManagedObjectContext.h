#pragma once

#include "platform/foundation/Observable.h"
#include "platform/store/ManagedObject.h"
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

// What one save wrote.
struct SavedChanges {
    std::vector<std::shared_ptr<ManagedObject>> inserted;
    std::vector<std::shared_ptr<ManagedObject>> updated;
    std::vector<std::shared_ptr<ManagedObject>> deleted;

    bool touches(const QString& entity) const;
};

// The main context: all objects of one store, with the changes that no save has written yet.
//
// The object graph is read whole when the context gets its store. A failed save writes nothing and keeps
// every change pending, so the next save that works carries them. Main thread.
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

    // Takes a detached object in. An object of this context is left as it is.
    void insert(const std::shared_ptr<ManagedObject>& object);
    // Deletes the object and, by the delete rules, what hangs on it. A second delete has no effect.
    void deleteObject(ManagedObject& object);

    // Pending objects included, pending deletions not. Without sort descriptors in order of creation.
    std::vector<std::shared_ptr<ManagedObject>> fetch(const FetchRequest& request) const;

    bool hasChanges() const;
    // One transaction with all that changed; touches no page when nothing did.
    StoreResult<void> save();

    // Told after each save that wrote something.
    Subscription onSave(std::function<void(const SavedChanges&)> observer);

private:
    friend class ManagedObject;

    void noteAttributeChange(ManagedObject& object, qsizetype attribute);
    void noteRelationChange(ManagedObject& source, qsizetype relationship, ManagedObject& target,
                            qsizetype inverse);
    void noteUpdate(ManagedObject& object, qsizetype column);
    void adopt(std::shared_ptr<ManagedObject> object);
    StoreResult<void> loadGraph(SqliteStore& store);
    std::optional<StoreError> missingValue() const;
    StoreChanges pendingChanges() const;
    SavedChanges takePending();

    std::shared_ptr<const ManagedObjectModel> m_model;
    std::unique_ptr<SqliteStore> m_store;

    // By entity and by the order in which they came in, which is what a fetch without sorting yields.
    std::map<QString, std::map<std::uint64_t, std::shared_ptr<ManagedObject>>> m_objects;
    std::uint64_t m_nextSequence = 0;

    // Pending until the next save that works.
    QHash<ManagedObject*, std::shared_ptr<ManagedObject>> m_inserted;
    QHash<ManagedObject*, QSet<qsizetype>> m_updated; // changed columns, see StoreChanges
    QHash<ManagedObject*, std::shared_ptr<ManagedObject>> m_deleted;
    QHash<JoinRow, bool> m_joins; // true: must be there after the save

    Signal<SavedChanges> m_saves;
};

} // namespace platform
