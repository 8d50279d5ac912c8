#include "Quillet/screens/settings/LegacyModel.h"

#include "platform/foundation/MainQueue.h"

namespace quillet {

LegacyModel::LegacyModel(CloudKitService& cloudKitService, CoreDataStack& coreDataStack)
    : m_cloudKitService(&cloudKitService)
    , m_coreDataStack(&coreDataStack)
    , m_legacySnippets(std::make_shared<platform::Observable<Snippets>>()) {
    loadLegacySnippets();
}

void LegacyModel::loadLegacySnippets() {
    m_cloudKitService->performWhenZoneExists(
        [service = m_cloudKitService, waiting = std::weak_ptr(m_legacySnippets)] {
            service->fetchSnippetRecords([waiting](const std::vector<platform::CKRecord>& records) {
                platform::dispatchToMain([waiting, records] {
                    const auto legacySnippets = waiting.lock();
                    if (!legacySnippets) return;
                    Snippets snippets;
                    snippets.reserve(records.size());
                    for (const auto& record : records)
                        snippets.emplace_back(std::make_shared<Snippet>())->update(record);
                    legacySnippets->set(std::move(snippets));
                });
            });
        });
}

void LegacyModel::migrate() {
    if (m_migrated.value()) return;
    for (const auto& snippet : m_legacySnippets->value())
        m_coreDataStack->viewContext().insert(snippet);
    m_coreDataStack->saveContext();
    m_migrated.set(true);
}

} // namespace quillet
