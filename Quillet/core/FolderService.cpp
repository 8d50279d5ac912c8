#include "Quillet/core/FolderService.h"

#include "Quillet/core/Snippet.h"

namespace quillet {

FolderService::FolderService(CoreDataStack& stack)
    : m_stack(&stack) {}

FolderService& FolderService::shared() {
    static FolderService service;
    return service;
}

void FolderService::remove(Folder& folder, Snippets snippets) {
    const auto members = folder.toMany(Folder::Snippets); // a copy: the loop changes the set
    for (auto* snippet : members) {
        if (snippets == Snippets::Delete)
            m_stack->viewContext().deleteObject(*snippet);
        else
            snippet->setToOne(Snippet::InFolder, nullptr);
    }
    m_stack->viewContext().deleteObject(folder);
    m_stack->saveContext();
}

} // namespace quillet
