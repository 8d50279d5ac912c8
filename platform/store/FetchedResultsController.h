#pragma once

#include "platform/store/ManagedObjectContext.h"

namespace platform {

// The objects of one fetch request, kept up to date: one change event a save or merge that touches their
// entity. Main thread; outlived by its context.
class FetchedResultsController {
public:
    using Objects = std::vector<std::shared_ptr<ManagedObject>>;

    FetchedResultsController(FetchRequest request, ManagedObjectContext& context);
    FetchedResultsController(const FetchedResultsController&) = delete;
    FetchedResultsController& operator=(const FetchedResultsController&) = delete;

    // Fills fetchedObjects().
    void performFetch();

    const Objects& fetchedObjects() const { return m_objects; }

    // Called inside the save or the merge, after fetchedObjects() is up to date.
    void setDidChangeContent(std::function<void()> handler) { m_didChangeContent = std::move(handler); }

private:
    FetchRequest m_request;
    ManagedObjectContext* m_context;
    Objects m_objects;
    std::function<void()> m_didChangeContent;
    Subscription m_changes;
};

} // namespace platform
