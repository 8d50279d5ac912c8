#pragma once

#include <QtCore/QString>

#include <memory>
#include <optional>

namespace platform {

class ChangeCapture;

// Where a store lies and how it is opened.
struct PersistentStoreDescription {
    std::optional<QString> path; // of the store's file; a description without one is not loaded

    // A store of another model is migrated if both are set and the mapping can be inferred.
    bool shouldInferMappingModelAutomatically = false;
    bool shouldMigrateStoreAutomatically = false;

    // Told of every save; nobody is where there is none.
    std::shared_ptr<ChangeCapture> changeCapture = {};
};

} // namespace platform
