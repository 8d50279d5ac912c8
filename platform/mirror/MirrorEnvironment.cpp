#include "platform/mirror/MirrorEnvironment.h"

namespace platform {

StoreResult<void> withProgress(const MirrorEnvironment& environment,
                               const std::function<StoreResult<void>(MirrorProgress&)>& body) {
    return environment.storage.transaction([&]() -> StoreResult<void> {
        auto progress = environment.storage.progress();
        if (!progress) return std::unexpected(progress.error());
        const MirrorProgress before = *progress;
        STORE_TRY(body(*progress));
        if (*progress != before) return environment.storage.setProgress(*progress);
        return {};
    });
}

StoreResult<MirrorProgress> readProgress(const MirrorEnvironment& environment) {
    MirrorProgress read;
    STORE_TRY(withProgress(environment, [&read](const MirrorProgress& progress) -> StoreResult<void> {
        read = progress;
        return {};
    }));
    return read;
}

} // namespace platform
