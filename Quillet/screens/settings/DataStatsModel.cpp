#include "Quillet/screens/settings/DataStatsModel.h"

#include "Quillet/core/CoreDataStack.h"

namespace quillet {

DataStatsModel::DataStatsModel()
    : m_snippetRepository(CoreDataStack::shared().viewContext())
    , m_tagRepository(CoreDataStack::shared().viewContext())
    , m_folderRepository(CoreDataStack::shared().viewContext()) {
    m_cancellables.push_back(
        m_snippetRepository.results().observe([this](const auto& results) { snippets.set(results); }));
    m_cancellables.push_back(
        m_tagRepository.results().observe([this](const auto& results) { tags.set(results); }));
    m_cancellables.push_back(
        m_folderRepository.results().observe([this](const auto& results) { folders.set(results); }));
}

} // namespace quillet
