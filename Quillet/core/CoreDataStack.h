#pragma once

#include "Quillet/core/SaveReason.h"
#include "platform/foundation/Observable.h"
#include "platform/mirror/PersistentCloudContainer.h"
#include "platform/store/UbiquitousKeyValueStore.h"

#include <memory>
#include <optional>

namespace quillet {

// The owner of the one container and its main context. A process-wide shared instance; main thread, but for
// its making.
class CoreDataStack {
public:
    // What the store is good for right now; a screen may tell the user.
    struct Health {
        std::optional<platform::StoreError> loadError; // fixed once loading was tried
        std::optional<platform::StoreError> saveError; // of the latest save, until one works
    };

    static CoreDataStack& shared();

    // For a store elsewhere than in the data directory.
    explicit CoreDataStack(QString directory);

    // Checks and loads the store at first use. The container works without a store, too: lists are empty
    // then, and every save fails.
    platform::PersistentCloudContainer& cloudKitContainer();

    platform::ManagedObjectContext& viewContext() { return cloudKitContainer().viewContext(); }

    // Keeps the library and the settings in step with the account's cloud from now on. `settings` outlives
    // that.
    void startMirroring(platform::AccountReader readAccount, platform::StoreOpener open,
                        platform::UbiquitousKeyValueStore& settings);
    void stopMirroring();

    // Logs the reason and saves; never skipped, also with nothing to save. A failure leaves all changes
    // pending for the next save and shows in health().
    void save(SaveReason reason);

    // The save of those who have logged on their own.
    void saveContext();

    const platform::Observable<Health>& health() const { return m_health; }

    platform::Observable<Health>& health() { return m_health; }

    // Declared state without effect: nothing reads or writes it. A failed load shows in health().
    bool failedOnce = false;

private:
    void build();
    void finishLoading(const std::optional<platform::StoreError>& error);

    QString m_directory;
    std::unique_ptr<platform::PersistentCloudContainer> m_container;
    platform::UbiquitousKeyValueStore* m_settings = nullptr; // while they are mirrored
    platform::Observable<Health> m_health;
};

} // namespace quillet
