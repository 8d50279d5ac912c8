#pragma once

#include <memory>
#include <new>
#include <utility>

namespace platform {

// Holds an instance that lives until the process ends. Its destructor never runs: at that time what it stands
// on (the toolkit's own statics among it) may be gone already.
template <typename T>
class NeverDestroyed {
public:
    template <typename... Args>
    explicit NeverDestroyed(Args&&... args) {
        std::construct_at(pointer(), std::forward<Args>(args)...);
    }

    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& get() { return *std::launder(pointer()); }

private:
    T* pointer() { return reinterpret_cast<T*>(m_storage); }

    alignas(T) unsigned char m_storage[sizeof(T)];
};

} // namespace platform
