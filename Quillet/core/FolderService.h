#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Folder.h"

namespace quillet {

// Deletes folders. A failed save drops its error and leaves the change pending. Main thread.
class FolderService {
public:
    enum class Snippets { Keep, Delete };

    explicit FolderService(CoreDataStack& stack = CoreDataStack::shared());

    static FolderService& shared();

    void remove(Folder& folder, Snippets snippets);

private:
    CoreDataStack* m_stack;
};

} // namespace quillet
