#pragma once

#include "platform/store/ManagedObjectContext.h"
#include "platform/store/PersistentStoreCoordinator.h"
#include "platform/store/PersistentStoreDescription.h"

namespace platform {

// A model, its store and the main context. Main thread.
class PersistentContainer {
public:
    // One description of the store "NAME.sqlite" in `directory`, not loaded yet.
    PersistentContainer(const QString& name, std::shared_ptr<const ManagedObjectModel> model,
                        const QString& directory);

    // To be changed before the stores are loaded.
    std::vector<PersistentStoreDescription>& persistentStoreDescriptions() { return m_descriptions; }

    const PersistentStoreCoordinator& persistentStoreCoordinator() const { return m_coordinator; }

    // Has no store until one is loaded: then every fetch yields what was inserted, and every save fails.
    ManagedObjectContext& viewContext() { return m_viewContext; }

    // Loads the store of each description that has a path, and tells `completion` how it went, once a store.
    using Completion =
        std::function<void(const PersistentStoreDescription&, const std::optional<StoreError>&)>;
    void loadPersistentStores(const Completion& completion);

private:
    StoreResult<void> load(const PersistentStoreDescription& description);

    PersistentStoreCoordinator m_coordinator;
    std::vector<PersistentStoreDescription> m_descriptions;
    ManagedObjectContext m_viewContext;
};

} // namespace platform
