#pragma once

#include "platform/store/PersistentStoreCoordinator.h"
#include "platform/store/PersistentStoreDescription.h"

namespace quillet {

// Looks at a store before it is loaded: allows light migration, and moves a store out of the way that the
// coordinator's model cannot open even so. Its bytes stay in a dated file beside the place. Main thread.
void checkStore(platform::PersistentStoreDescription& description,
                const platform::PersistentStoreCoordinator& coordinator);

} // namespace quillet
