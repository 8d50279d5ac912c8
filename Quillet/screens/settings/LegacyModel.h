#pragma once

#include "Quillet/cloud/CloudKitService.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Snippet.h"
#include "platform/foundation/Observable.h"

namespace quillet {

// What still lies in the older cloud layout, and its way into the library. Nothing looks for duplicates, and
// nothing but this model remembers that the way was taken. Main thread.
class LegacyModel {
public:
    using Snippets = std::vector<std::shared_ptr<Snippet>>;

    // Starts to load the snippets. Both outlive this.
    LegacyModel(CloudKitService& cloudKitService, CoreDataStack& coreDataStack);
    LegacyModel(const LegacyModel&) = delete;
    LegacyModel& operator=(const LegacyModel&) = delete;

    // In no context, until they are migrated. Empty until the cloud has answered, and where its answer is an
    // error.
    const platform::Observable<Snippets>& legacySnippets() const { return *m_legacySnippets; }

    platform::Observable<Snippets>& legacySnippets() { return *m_legacySnippets; }

    const platform::Observable<bool>& migrated() const { return m_migrated; }

    platform::Observable<bool>& migrated() { return m_migrated; }

    // Puts the snippets into the library and saves it; once in the life of this model. After a failed save
    // they wait for the next one.
    void migrate();

private:
    void loadLegacySnippets();

    CloudKitService* m_cloudKitService;
    CoreDataStack* m_coreDataStack;
    // The cloud may answer when this is gone.
    std::shared_ptr<platform::Observable<Snippets>> m_legacySnippets;
    platform::Observable<bool> m_migrated;
};

} // namespace quillet
