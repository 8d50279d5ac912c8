#pragma once

#include "Quillet/core/SaveReason.h"
#include "platform/foundation/Observable.h"
#include "platform/store/ManagedObjectContext.h"

#include <memory>
#include <optional>

namespace quillet {

// The owner of the one store and its main context. A process-wide shared instance; main thread, but for its
// making.
class CoreDataStack {
public:
    // What the store is good for right now; a screen may tell the user.
    struct Health {
        std::optional<platform::StoreError> loadError; // fixed once loading was tried
        std::optional<platform::StoreError> saveError; // of the latest save, until one works
    };

    static CoreDataStack& shared();

    // For a store elsewhere than in the data directory.
    explicit CoreDataStack(QString storePath);

    // Checks and loads the store at first use. The context works without a store, too: lists are empty then,
    // and every save fails.
    platform::ManagedObjectContext& viewContext();

    // Logs the reason and saves; never skipped, also with nothing to save. A failure leaves all changes
    // pending for the next save and shows in health().
    void save(SaveReason reason);

    // The save of those who have logged on their own.
    void saveContext();

    const platform::Observable<Health>& health() const { return m_health; }

    platform::Observable<Health>& health() { return m_health; }

private:
    void build();
    void checkStore();
    platform::StoreResult<void> loadStore();

    QString m_storePath;
    std::unique_ptr<platform::ManagedObjectContext> m_viewContext;
    platform::Observable<Health> m_health;
};

} // namespace quillet
