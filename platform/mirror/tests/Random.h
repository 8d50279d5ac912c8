#pragma once

#include <QtCore/QUuid>

#include <random>

namespace simulation {

// All that happens in a simulation comes from here, so that its seed tells it all.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : m_engine(seed) {}

    // In [0, limit).
    int below(int limit) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(limit)); }

    bool perMille(int chance) { return below(1000) < chance; }

    QUuid id() {
        const std::uint64_t parts[] = {m_engine(), m_engine()};
        return QUuid::fromRfc4122(QByteArray(reinterpret_cast<const char*>(parts), sizeof parts));
    }

    template <typename Container>
    const auto& of(const Container& container) {
        return *std::next(container.begin(), below(static_cast<int>(container.size())));
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace simulation
