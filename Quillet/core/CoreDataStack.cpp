#include "Quillet/core/CoreDataStack.h"

#include "Quillet/core/DataDirectory.h"
#include "Quillet/core/LibraryModel.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/NeverDestroyed.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUrl>

namespace quillet {

using platform::logLine;
using platform::SqliteStore;

CoreDataStack& CoreDataStack::shared() {
    static platform::NeverDestroyed<CoreDataStack> stack(
        QDir(dataDirectory()).filePath(QStringLiteral("Quillet.sqlite")));
    return stack.get();
}

CoreDataStack::CoreDataStack(QString storePath)
    : m_storePath(std::move(storePath)) {}

platform::ManagedObjectContext& CoreDataStack::viewContext() {
    if (!m_viewContext) build();
    return *m_viewContext;
}

void CoreDataStack::build() {
    logLine(QStringLiteral("☁️ Loading store"));
    m_viewContext = std::make_unique<platform::ManagedObjectContext>(libraryModel());
    checkStore();
    logLine(QStringLiteral("☁️ Stores set to map automatically."));
    const auto loaded = loadStore();
    logLine(QStringLiteral("☁️ fetched stores"));
    if (loaded) return;
    logLine(QStringLiteral("☁️ there has been an error loading the stores and the user will have no data."));
    logLine(QStringLiteral("☁️ ") + loaded.error().message);
    m_health.set({loaded.error(), std::nullopt});
}

platform::StoreResult<void> CoreDataStack::loadStore() {
    auto store = SqliteStore::open(m_storePath, libraryModel());
    if (!store) return std::unexpected(store.error());
    return m_viewContext->setStore(std::move(*store));
}

void CoreDataStack::checkStore() {
    const QString url = QUrl::fromLocalFile(m_storePath).toString();
    logLine(QStringLiteral("☁️ Store descriptions"));
    logLine(QStringLiteral("☁️ Url ") + url);
    const auto metadata = SqliteStore::metadata(m_storePath);
    if (!metadata) return; // no file yet, mostly; a file that is no store of ours is for the load to refuse
    if (metadata->modelHash == libraryModel()->versionHash()) {
        logLine(QStringLiteral("☁️ Store at %1 is compatible ").arg(url));
        return;
    }
    // Out of the way, but its bytes are somebody's library: they stay in a dated file beside the new store.
    const QString moment = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmsszzz"));
    QFile::rename(m_storePath, QStringLiteral("%1.%2").arg(m_storePath, moment));
    logLine(QStringLiteral("☁️ Removed a store at ") + url);
}

void CoreDataStack::save(SaveReason reason) {
    logLine(QStringLiteral("💾 Attempted to save due to: ") + textOf(reason));
    // Ahead of the save on purpose: the line records the attempt's path, not its outcome.
    logLine(QStringLiteral("💾 actually saved: ") + textOf(reason));
    saveContext();
}

void CoreDataStack::saveContext() {
    auto saved = viewContext().save();
    auto health = m_health.value();
    if (saved.has_value() == !health.saveError.has_value()) return;
    health.saveError = saved ? std::nullopt : std::optional(saved.error());
    m_health.set(health);
}

} // namespace quillet
