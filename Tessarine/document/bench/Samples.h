#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace tessarine {

// Durations in nanoseconds, less what the clock itself takes.
class Samples {
public:
    explicit Samples(std::size_t count = 0) { m_values.reserve(count); }

    // Runs `work` once and keeps its duration.
    template <class Work>
    void measure(Work&& work) {
        const double elapsed = durationOf(work);
        m_values.push_back(std::max(0.0, elapsed - clockCost()));
    }

    // Runs `work` once, which does something `count` times, and keeps what one of these took.
    template <class Work>
    void measureMean(int count, Work&& work) {
        m_values.push_back(durationOf(work) / count);
    }

    double median() { return quantile(0.5); }

    double p99() { return quantile(0.99); }

private:
    template <class Work>
    static double durationOf(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
    }

    static double clockCost() {
        static const double cost = [] {
            std::vector<double> empty(10'001);
            std::ranges::generate(empty, [] { return durationOf([] {}); });
            std::ranges::nth_element(empty, empty.begin() + 5'000);
            return empty[5'000];
        }();
        return cost;
    }

    double quantile(double part) {
        const auto at =
            m_values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(m_values.size() - 1));
        std::ranges::nth_element(m_values, at);
        return *at;
    }

    std::vector<double> m_values;
};

} // namespace tessarine
