#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Tag.h"

namespace quillet {

// Deletes tags. A failed save drops its error and leaves the change pending. Main thread.
class TagService {
public:
    enum class Snippets { Keep, Delete };

    explicit TagService(CoreDataStack& stack = CoreDataStack::shared());

    static TagService& shared();

    void remove(Tag& tag, Snippets snippets);

private:
    CoreDataStack* m_stack;
};

} // namespace quillet
