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
    for (auto* snippet : folder.toMany(Folder::Snippets).toVector()) {
        if (snippets == Snippets::Delete)
            m_stack->viewContext().deleteObject(*snippet);
        else
            snippet->setToOne(Snippet::InFolder, nullptr);
    }
    m_stack->viewContext().deleteObject(folder);
    m_stack->saveContext();
}

} // namespace quillet
