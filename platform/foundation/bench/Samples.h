#pragma once

#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <vector>

namespace platform {

// Times of one thing, in milliseconds, and what the tables tell of them.
class Samples {
public:
    void add(double milliseconds) {
        m_times.insert(std::ranges::upper_bound(m_times, milliseconds), milliseconds);
    }

    double median() const { return quantile(0.5); }

    double p99() const { return quantile(0.99); }

    double quantile(double part) const {
        return m_times[static_cast<std::size_t>(part * static_cast<double>(m_times.size() - 1) + 0.5)];
    }

private:
    std::vector<double> m_times; // ascending
};

template <typename Body>
double millisecondsOf(Body&& body) {
    QElapsedTimer timer;
    timer.start();
    body();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

template <typename Body>
Samples measure(int count, Body&& body) {
    Samples samples;
    for (int i = 0; i < count; ++i)
        samples.add(millisecondsOf(body));
    return samples;
}

} // namespace platform
