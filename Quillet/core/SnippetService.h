#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Snippet.h"

namespace quillet {

// Saves and deletes snippets. A failed save drops its error and leaves the change pending. Main thread.
class SnippetService {
public:
    // Builds the stack's container where that has not happened yet.
    explicit SnippetService(CoreDataStack& stack = CoreDataStack::shared());

    static SnippetService& shared();

    // Inserts a detached snippet first.
    void save(const std::shared_ptr<Snippet>& snippet);
    void remove(Snippet& snippet);

private:
    CoreDataStack* m_stack;
    platform::ManagedObjectContext* m_coreDataContext;
};

} // namespace quillet
