#pragma once

#include "platform/store/ManagedObjectContext.h"

#include <QtCore/QRandomGenerator>

namespace quillet {

// A fixed sequence of random edits of a library. Each step depends on its number and on the library alone,
// and leaves its number there, so that a script which was interrupted goes on where the store says.
class LibraryScript {
public:
    explicit LibraryScript(platform::ManagedObjectContext& context)
        : m_context(&context) {}

    // The number of the last step that the library holds; 0 for none.
    int lastStep() const;

    // Makes the edits of a step, and does not save. Steps are made in order, from 1.
    void make(int step);

    // All that the library holds, known by titles instead of identities; equal libraries give equal text.
    QByteArray dump() const;

private:
    using Object = std::shared_ptr<platform::ManagedObject>;

    std::vector<Object> sorted(const char* entity) const;
    Object pick(const char* entity);
    Object create(const char* entity);
    QString text();
    void edit();
    void editSnippet(platform::ManagedObject& snippet);

    platform::ManagedObjectContext* m_context;
    QRandomGenerator m_random;
    int m_step = 0;
    int m_created = 0; // in this step
};

} // namespace quillet
