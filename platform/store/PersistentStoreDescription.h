#pragma once

#include <QtCore/QString>

#include <optional>

namespace platform {

// Where a store lies and how it is opened.
struct PersistentStoreDescription {
    std::optional<QString> path; // of the store's file; a description without one is not loaded

    // A store of another model is migrated if both are set and the mapping can be inferred.
    bool shouldInferMappingModelAutomatically = false;
    bool shouldMigrateStoreAutomatically = false;
};

} // namespace platform
