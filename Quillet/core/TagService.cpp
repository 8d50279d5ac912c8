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
    const auto members = tag.toMany(Tag::Snippets); // a copy: the loop changes the set
    for (auto* snippet : members) {
        if (snippets == Snippets::Delete)
            m_stack->viewContext().deleteObject(*snippet);
        else
            snippet->removeFromMany(Snippet::Tags, tag);
    }
    m_stack->viewContext().deleteObject(tag);
    m_stack->saveContext();
}

} // namespace quillet
