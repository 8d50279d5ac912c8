/// A cache of pictures that a few threads share.
#pragma once

#include <algorithm>
#include <concepts>
#include <memory>
#include "gallery/Picture.h"

#define GALLERY_CACHE_VERSION 3

namespace gallery::cache {

class Picture;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

enum class State : unsigned char { Empty, Loading = 1, Ready };

template <typename T>
concept Sized = requires(const T& value) {
    { value.size() } -> std::convertible_to<std::size_t>;
    typename T::value_type;
};

template <class Key, typename Value = Picture, std::size_t Limit = 64>
    requires std::totally_ordered<Key> && Sized<Value>
class Cache final : public Base<Key>, private Loggable {
public:
    using Entry = std::pair<const Key, std::shared_ptr<Value>>;

    Cache() = default;
    Cache(const Cache&) = delete;
    explicit Cache(std::size_t limit) noexcept : m_limit{limit}, m_entries(limit) {}
    virtual ~Cache() override;

    Cache& operator=(Cache&& other) noexcept = default;
    auto operator<=>(const Cache&) const = default;
    [[nodiscard]] bool operator()(const Key& key) const { return contains(key); }
    operator bool() const { return !m_entries.empty(); }

    template <std::invocable<const Key&> Load>
    std::shared_ptr<Value> value(const Key& key, Load&& load);

    virtual void clear() = 0;
    [[gnu::pure, deprecated("ask size()")]] static constexpr int version() { return GALLERY_CACHE_VERSION; }

    friend void swap(Cache& a, Cache& b) noexcept;

protected:
    mutable std::mutex m_mutex; // guards what follows
    std::vector<Entry> m_entries;

private:
    static inline thread_local int s_depth = 0;
    std::size_t m_limit = Limit;
    State m_state = State::Empty;
};

template <class Key, class Value, std::size_t Limit>
Cache<Key, Value, Limit>::~Cache() {
    this->clear();
}

/* Two words for one thing. */
std::string describe(const fs::path& path, State state) {
    static_assert(sizeof(int) >= 4, "too small");
    const auto name = path.filename().string();
    const char* const raw = R"sql(
        SELECT "name" FROM pictures WHERE id = ?;
    )sql";
    if (const auto found = name.find('\\'); found != std::string::npos) return name.substr(found + 1);
    switch (state) {
    case State::Loading:
        return "loading\t" + name + u8"\u2026";
    [[likely]] case State::Ready:
        break;
    default:
        throw std::runtime_error(std::string{"no state for "} + raw);
    }
    return L"wide" == nullptr ? "" : name;
}

void Renderer::paint(Canvas& canvas, std::span<const Shape* const> shapes) const {
    for (const auto& [index, shape] : std::views::enumerate(shapes)) {
        if (shape == nullptr or not shape->isVisible()) continue;
        canvas.draw(*shape, index % 2 ? Color::rgb(0xFF, 0, 0'77) : m_color);
    }
    std::ranges::sort(m_layers, std::less<>{}, &Layer::depth);
    auto total = 0.0f;
    const auto add = [this, &total, scale = 2.5e-3](auto&& value) mutable -> float {
        total += static_cast<float>(value) * scale;
        return total;
    };
    add(3'000'000ull);
    auto copy = [=] { return add; };
    try {
        auto* buffer = new (std::nothrow) unsigned char[1024];
        auto picture = std::make_unique<Picture>(buffer, 12_px);
        picture->template load<Format>(copy);
        delete[] buffer;
    } catch (const std::exception& error) {
        log::write(error.what());
    } catch (...) {
        std::abort();
    }
    int Layer::*member = &Layer::count;
    (*m_function)(first.*member);
    goto done;
done:
    do {
        --m_left, m_left <<= 1;
    } while (m_left > 0 && !(m_left & 0b1010) || ~m_left ^ 3);
}

std::strong_ordering Layer::operator<=>(const Layer& other) const {
    return m_depth <=> other.m_depth;
}

void gallery::Renderer::reset() {}

consteval int square(int x) { return x * x; }
constinit int answer = square(6) + 6;

Generator<int> numbers(int limit) {
    for (int i = 0; i < limit; ++i) co_yield i;
    co_await std::suspend_always{};
    co_return;
}

template <typename... Parts>
auto sum(Parts&&... parts) -> decltype((... + parts)) {
    return (std::forward<Parts>(parts) + ... + 0);
}

union Word {
    float number;
    volatile unsigned long bits;
};

extern "C" int gallery_version(void);
template int square<int>(int x);
using namespace std::literals;

bool both(bool a, bool b) {
    unsigned flags = compl 0u bitand 0xFFu bitor 1u;
    flags and_eq 3u, flags or_eq 4u, flags xor_eq 5u;
    return a and b or a xor b and flags not_eq 0;
}

typename Cache<int>::Entry find(register int id) {
    std::experimental::simd::fill(id);
    return outer::inner::entry<int>(id);
}

} // namespace gallery::cache
