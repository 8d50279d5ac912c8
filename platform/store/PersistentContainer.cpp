#include "platform/store/PersistentContainer.h"

#include <QtCore/QDir>

namespace platform {

PersistentContainer::PersistentContainer(const QString& name, std::shared_ptr<const ManagedObjectModel> model,
                                         const QString& directory)
    : m_coordinator(model)
    , m_descriptions{{QDir(directory).filePath(name + QStringLiteral(".sqlite"))}}
    , m_viewContext(std::move(model)) {}

void PersistentContainer::loadPersistentStores(const Completion& completion) {
    for (const auto& description : m_descriptions) {
        if (!description.path) continue;
        const auto loaded = load(description);
        completion(description, loaded ? std::nullopt : std::optional(loaded.error()));
    }
}

StoreResult<void> PersistentContainer::load(const PersistentStoreDescription& description) {
    const bool migrates =
        description.shouldInferMappingModelAutomatically && description.shouldMigrateStoreAutomatically;
    auto store = SqliteStore::open(*description.path, m_coordinator.managedObjectModel(),
                                   migrates ? SqliteStore::Migration::Infer : SqliteStore::Migration::Refuse);
    if (!store) return std::unexpected(store.error());
    if (description.changeCapture) STORE_TRY((*store)->setCapture(description.changeCapture));
    return m_viewContext.setStore(std::move(*store));
}

} // namespace platform
