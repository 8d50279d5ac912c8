#pragma once

#include "platform/cloud/CloudStore.h"
#include "platform/mirror/MirrorPolicy.h"
#include "platform/mirror/MirrorStorage.h"

#include <expected>
#include <functional>
#include <variant>

namespace platform {

// What a mirror stands on; all of it outlives the mirror.
struct MirrorEnvironment {
    CloudStore& cloud;
    MirrorStorage& storage;
    const MirrorPolicy& policy;
    QString zone;
    std::function<WallTime()> wall;
    std::function<QUuid()> random;
};

using MirrorError = std::variant<CKError, StoreError>;

template <typename T>
using MirrorResult = std::expected<T, MirrorError>;

// A transaction that also reads the progress and writes it where the body has changed it.
StoreResult<void> withProgress(const MirrorEnvironment& environment,
                               const std::function<StoreResult<void>(MirrorProgress&)>& body);

StoreResult<MirrorProgress> readProgress(const MirrorEnvironment& environment);

} // namespace platform

// Hands the error of `expression` to the caller of a function with a MirrorResult.
#define MIRROR_TRY(expression)                                                                               \
    do {                                                                                                     \
        if (auto mirrored = (expression); !mirrored)                                                         \
            return std::unexpected(MirrorError(std::move(mirrored.error())));                                \
    } while (false)
