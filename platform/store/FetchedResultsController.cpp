#include "platform/store/FetchedResultsController.h"

namespace platform {

FetchedResultsController::FetchedResultsController(FetchRequest request, ManagedObjectContext& context)
    : m_request(std::move(request))
    , m_context(&context)
    , m_changes(context.onChange([this](const ContextChanges& changes) {
        if (!changes.touches(m_request.entity)) return;
        performFetch();
        if (m_didChangeContent) m_didChangeContent();
    })) {}

void FetchedResultsController::performFetch() {
    m_objects = m_context->fetch(m_request);
}

} // namespace platform
