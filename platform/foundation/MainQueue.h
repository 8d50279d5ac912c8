#pragma once

#include <functional>

namespace platform {

// Runs `work` on the main thread in a later turn of its loop, also when called there. Any thread. Work that
// is still queued when the application object goes is dropped.
void dispatchToMain(std::function<void()> work);

// Runs `work` on a pool thread. The pool is drained before the application object goes.
void dispatchToBackground(std::function<void()> work);

} // namespace platform
