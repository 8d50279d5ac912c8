#include "Quillet/screens/settings/LegacyModel.h"

#include "Quillet/cloud/LegacySnippet.h"
#include "platform/foundation/MainQueue.h"

#include <algorithm>
#include <iterator>

namespace quillet {

using platform::CKRecord;

namespace {

// On the cloud's queue: a snippet in no context is nobody else's yet.
LegacyModel::Snippets snippetsFrom(const std::vector<CKRecord>& records) {
    LegacyModel::Snippets snippets;
    snippets.reserve(records.size());
    std::ranges::transform(records, std::back_inserter(snippets), legacySnippet);
    return snippets;
}

} // namespace

LegacyModel::LegacyModel(CloudKitService& cloudKitService, CoreDataStack& coreDataStack)
    : m_cloudKitService(&cloudKitService)
    , m_coreDataStack(&coreDataStack)
    , m_legacySnippets(std::make_shared<platform::Observable<Snippets>>()) {
    loadLegacySnippets();
}

void LegacyModel::loadLegacySnippets() {
    m_cloudKitService->performWhenZoneExists(
        [service = m_cloudKitService, list = std::weak_ptr(m_legacySnippets)] {
            service->fetchSnippetRecords([list](const std::vector<CKRecord>& records) {
                platform::dispatchToMain([list, snippets = snippetsFrom(records)] {
                    if (const auto shown = list.lock()) shown->set(snippets);
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
