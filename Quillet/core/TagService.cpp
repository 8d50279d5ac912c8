#include "Quillet/core/TagService.h"

#include "Quillet/core/Snippet.h"

namespace quillet {

TagService::TagService(CoreDataStack& stack)
    : m_stack(&stack) {}

TagService& TagService::shared() {
    static TagService service;
    return service;
}

void TagService::remove(Tag& tag, Snippets snippets) {
    for (auto* snippet : tag.toMany(Tag::Snippets).toVector()) {
        if (snippets == Snippets::Delete)
            m_stack->viewContext().deleteObject(*snippet);
        else
            snippet->removeFromMany(Snippet::Tags, tag);
    }
    m_stack->viewContext().deleteObject(tag);
    m_stack->saveContext();
}

} // namespace quillet
