#include "Quillet/core/SnippetService.h"

#include "platform/foundation/Log.h"

namespace quillet {

SnippetService::SnippetService(CoreDataStack& stack)
    : m_stack(&stack)
    , m_coreDataContext(&stack.viewContext()) {}

SnippetService& SnippetService::shared() {
    static SnippetService service;
    return service;
}

void SnippetService::save(const std::shared_ptr<Snippet>& snippet) {
    if (!snippet->context()) m_coreDataContext->insert(snippet);
    platform::logLine(QStringLiteral("💾 Saving a snippet"));
    m_stack->saveContext();
}

void SnippetService::remove(Snippet& snippet) {
    platform::logLine(QStringLiteral("💾 Deleting a snippet"));
    m_coreDataContext->deleteObject(snippet);
    m_stack->saveContext();
}

} // namespace quillet
