#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace platform {

// Ends an observation when it goes. Movable, not copyable.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;

    explicit Subscription(std::function<void()> cancel)
        : m_cancel(std::move(cancel)) {}

    Subscription(Subscription&& other) noexcept
        : m_cancel(std::exchange(other.m_cancel, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(m_cancel, other.m_cancel);
        return *this;
    }

    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    ~Subscription() {
        if (m_cancel) m_cancel();
    }

private:
    std::function<void()> m_cancel;
};

// A list of observers. Main thread. An observer may end its own subscription or another's while it is told,
// and a subscription may outlive the signal.
template <typename T>
class Signal {
public:
    using Observer = std::function<void(const T&)>;

    Subscription observe(Observer observer) {
        const std::size_t token = m_nextToken++;
        m_observers->emplace(token, std::move(observer));
        return Subscription([weak = std::weak_ptr(m_observers), token] {
            if (auto observers = weak.lock()) observers->erase(token);
        });
    }

    void emit(const T& event) const {
        const auto observers = m_observers; // an observer may release the signal itself
        std::vector<std::size_t> tokens;
        tokens.reserve(observers->size());
        for (const auto& [token, observer] : *observers)
            tokens.push_back(token);
        for (const std::size_t token : tokens) {
            const auto found = observers->find(token);
            if (found == observers->end()) continue;
            const Observer observer = found->second; // outlives its own cancellation
            observer(event);
        }
    }

private:
    std::size_t m_nextToken = 0;
    std::shared_ptr<std::map<std::size_t, Observer>> m_observers =
        std::make_shared<std::map<std::size_t, Observer>>();
};

// A value that tells its observers each time it is set, equal or not.
template <typename T>
class Observable {
public:
    Observable() = default;

    explicit Observable(T value)
        : m_value(std::move(value)) {}

    const T& value() const { return m_value; }

    void set(T value) {
        m_value = std::move(value);
        m_changes.emit(m_value);
    }

    // Tells `observer` each later value.
    Subscription observeChanges(typename Signal<T>::Observer observer) {
        return m_changes.observe(std::move(observer));
    }

    // Tells `observer` the current value at once, and each later one.
    Subscription observe(typename Signal<T>::Observer observer) {
        observer(m_value);
        return m_changes.observe(std::move(observer));
    }

private:
    T m_value{};
    Signal<T> m_changes;
};

} // namespace platform
