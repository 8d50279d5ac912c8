#pragma once

#include <functional>

namespace tessarine {

// The main thread of whoever uses the engine, as the engine's own threads reach it.
//
// Implementations call what is posted on that thread, one after the other in the order of posting and never
// from within post(). Thread: any. It outlives whatever may still post.
class MainExecutor {
public:
    using Task = std::move_only_function<void()>;

    MainExecutor() = default;
    MainExecutor(const MainExecutor&) = delete;
    MainExecutor& operator=(const MainExecutor&) = delete;
    virtual ~MainExecutor() = default;

    virtual void post(Task task) = 0;
};

} // namespace tessarine
