#pragma once

#include "Quillet/cloud/CloudKitService.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Snippet.h"
#include "platform/foundation/Observable.h"

#include <memory>
#include <vector>

namespace quillet {

// The snippets that lie in the cloud as records of the older layout, and their way into the library. Main
// thread.
class LegacyModel {
public:
    using Snippets = std::vector<std::shared_ptr<Snippet>>;

    // Asks for them at once. Both outlive this.
    explicit LegacyModel(CloudKitService& cloudKitService = CloudKitService::shared(),
                         CoreDataStack& coreDataStack = CoreDataStack::shared());

    const platform::Observable<Snippets>& legacySnippets() const { return *m_legacySnippets; }

    // Empty until they come. They belong to no context before they are migrated.
    platform::Observable<Snippets>& legacySnippets() { return *m_legacySnippets; }

    platform::Observable<bool>& migrated() { return m_migrated; }

    // Takes all of them into the library, once in the life of this: a new model would do so again.
    void migrate();

private:
    void loadLegacySnippets();

    CloudKitService* m_cloudKitService;
    CoreDataStack* m_coreDataStack;
    std::shared_ptr<platform::Observable<Snippets>>
        m_legacySnippets; // the cloud may answer when this is gone
    platform::Observable<bool> m_migrated;
};

} // namespace quillet
