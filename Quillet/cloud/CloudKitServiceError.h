#pragma once

#include "platform/cloud/CKError.h"

#include <optional>

namespace quillet {

// What the library tells apart of the cloud's errors.
struct CloudKitServiceError {
    // Nothing produces databaseFailure and badLocal.
    enum class Case { generic, unauthenticated, rateLimited, databaseFailure, networkFailure, badLocal };

    static CloudKitServiceError from(const platform::CKError& error);

    Case kind = Case::generic;
    std::optional<platform::CKError> error; // of generic alone

    bool operator==(const CloudKitServiceError&) const = default;
};

// The name of the case, and for generic what the error says.
QString descriptionOf(const CloudKitServiceError& error);

} // namespace quillet
