#pragma once

#include "platform/foundation/MainQueue.h"
#include "platform/foundation/Observable.h"
#include "platform/store/FetchedResultsController.h"

#include <memory>
#include <optional>
#include <vector>

namespace quillet {

// A live array of all objects of one entity, in no particular order. After each save or merge that touches
// the entity the whole array is replaced, in a later turn of the main loop. Main thread.
template <typename T>
class Repository {
public:
    using Results = std::vector<std::shared_ptr<T>>;

    explicit Repository(platform::ManagedObjectContext& context,
                        std::vector<platform::SortDescriptor> sortDescriptors = {},
                        std::function<bool(const platform::ManagedObject&)> predicate = {},
                        std::optional<qsizetype> fetchLimit = {})
        : m_state(
              std::make_shared<State>(platform::FetchRequest{T().entity().name, std::move(sortDescriptors),
                                                             std::move(predicate), fetchLimit},
                                      context)) {
        m_state->controller.performFetch();
        // The scheduled step keeps the state alive for its turn.
        m_state->controller.setDidChangeContent([state = std::weak_ptr(m_state)] {
            platform::dispatchToMain([state = state.lock()] {
                if (state) state->publish();
            });
        });
        m_state->controller.performFetch();
        m_state->publish();
    }

    const platform::Observable<Results>& results() const { return m_state->results; }

    platform::Observable<Results>& results() { return m_state->results; }

private:
    struct State {
        State(platform::FetchRequest request, platform::ManagedObjectContext& context)
            : controller(std::move(request), context) {}

        void publish() {
            Results objects;
            objects.reserve(controller.fetchedObjects().size());
            for (const auto& object : controller.fetchedObjects())
                objects.push_back(std::static_pointer_cast<T>(object));
            results.set(std::move(objects));
        }

        platform::FetchedResultsController controller;
        platform::Observable<Results> results;
    };

    std::shared_ptr<State> m_state;
};

} // namespace quillet
