#include "Quillet/core/CoreDataStack.h"

#include "Quillet/core/DataDirectory.h"
#include "Quillet/core/LibraryMirror.h"
#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/StoreCheck.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/NeverDestroyed.h"
#include "platform/mirror/KeyValueZone.h"

namespace quillet {

using platform::logLine;

namespace {

void keepText(platform::ManagedObject& object, qsizetype, const QString& text) {
    auto* owner = dynamic_cast<Segment*>(&object) ? object.toOne(Segment::OfSnippet) : &object;
    if (auto* snippet = dynamic_cast<Snippet*>(owner)) Segment::keepConflicting(*snippet, text);
}

} // namespace

CoreDataStack& CoreDataStack::shared() {
    static platform::NeverDestroyed<CoreDataStack> stack(dataDirectory());
    return stack.get();
}

CoreDataStack::CoreDataStack(QString directory)
    : m_directory(std::move(directory)) {}

platform::PersistentCloudContainer& CoreDataStack::cloudKitContainer() {
    if (!m_container) build();
    return *m_container;
}

void CoreDataStack::build() {
    logLine(QStringLiteral("☁️ Loading store"));
    m_container = std::make_unique<platform::PersistentCloudContainer>(
        QStringLiteral("Quillet"), libraryModel(), m_directory, libraryZone, libraryMirrorPolicy());
    for (auto& description : m_container->persistentStoreDescriptions())
        checkStore(description, m_container->persistentStoreCoordinator());
    logLine(QStringLiteral("☁️ Stores set to map automatically."));
    m_container->loadPersistentStores(
        [this](const auto&, const std::optional<platform::StoreError>& error) { finishLoading(error); });
}

void CoreDataStack::finishLoading(const std::optional<platform::StoreError>& error) {
    logLine(QStringLiteral("☁️ fetched stores"));
    viewContext().setKeepText(&keepText);
    viewContext().setAutomaticallyMergesChangesFromParent(true);
    if (!error) return;
    logLine(QStringLiteral("☁️ there has been an error loading the stores and the user will have no data."));
    logLine(QStringLiteral("☁️ ") + error->message);
    m_health.set({error, std::nullopt});
}

void CoreDataStack::startMirroring(platform::AccountReader readAccount, platform::StoreOpener open,
                                   platform::UbiquitousKeyValueStore& settings) {
    platform::MirroredZones zones;
    zones.push_back(std::make_unique<platform::KeyValueZone>(
        settingsZone, settings, [] { return QDateTime::currentMSecsSinceEpoch(); }));
    cloudKitContainer().startMirroring(std::move(readAccount), std::move(open), std::move(zones));
    m_settings = &settings;
    settings.setObserver([this] { m_container->noteLocalChange(); });
}

void CoreDataStack::stopMirroring() {
    if (m_settings) m_settings->setObserver({});
    m_settings = nullptr;
    if (m_container) m_container->stopMirroring();
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
    if (saved && !health.saveError) return;
    health.saveError = saved ? std::nullopt : std::optional(saved.error());
    m_health.set(health);
}

} // namespace quillet
