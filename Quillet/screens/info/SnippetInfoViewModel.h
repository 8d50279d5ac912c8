#pragma once

#include "Quillet/core/Snippet.h"
#include "platform/foundation/Observable.h"

namespace quillet {

// What the info panel is about. Main thread.
struct SnippetInfoViewModel {
    platform::Observable<std::shared_ptr<Snippet>> snippet; // null before the first
};

} // namespace quillet
