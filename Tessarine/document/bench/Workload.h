#pragma once

#include "Tessarine/document/bench/Samples.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <fstream>

namespace tessarine {

// The same sequence of numbers in every peer, whatever it is written in.
class WorkloadRandom {
public:
    // Below `limit`.
    std::int64_t operator()(std::int64_t limit) {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 17;
        m_state ^= m_state << 5;
        return static_cast<std::int64_t>(m_state) % limit;
    }

private:
    std::uint32_t m_state = 2463534242;
};

inline double residentBytes() {
    std::ifstream file("/proc/self/statm");
    double pages = 0;
    file >> pages >> pages;
    return pages * 4096;
}

// What takes longer than this is measured well enough by what was done until then.
class TimeLimit {
public:
    bool isOver() const { return std::chrono::steady_clock::now() > m_end; }

private:
    std::chrono::steady_clock::time_point m_end = std::chrono::steady_clock::now() + std::chrono::seconds(8);
};

inline constexpr int lookUpBatch = 1'000;
inline constexpr int lookUps = 1'000'000;

// Times `lookUps` calls in batches, a sample the mean of one batch.
template <class Look>
Samples timeLookUps(WorkloadRandom& random, std::int64_t limit, Look look) {
    Samples samples;
    std::array<std::int64_t, lookUpBatch> keys{};
    volatile std::int64_t sink = 0;
    const TimeLimit limitOfTime;
    for (int i = 0; i < lookUps / lookUpBatch && !limitOfTime.isOver(); ++i) {
        for (auto& key : keys)
            key = random(limit);
        samples.measureMean(lookUpBatch, [&] {
            std::int64_t sum = 0;
            for (const auto key : keys)
                sum += look(key);
            sink = sink + sum;
        });
    }
    return samples;
}

// Look-ups, random edits (an insert of a character, of a line break, of a character, a removal, and again)
// and keystrokes at one place. Every edit is timed by itself.
template <class Peer, class Report>
void workThrough(Peer& peer, int edits, Report report) {
    WorkloadRandom random;
    auto lineOf = timeLookUps(random, peer.length(), [&](auto key) { return peer.lineOf(key); });
    report("lineOfLocation", lineOf, 1);
    auto locationOf = timeLookUps(random, peer.lineCount(), [&](auto key) { return peer.locationOf(key); });
    report("locationOfLine", locationOf, 1);
    Samples randomEdits;
    const TimeLimit editing;
    for (int i = 0; i < edits && !editing.isOver(); ++i) {
        const std::int64_t location = random(peer.length() - 2);
        if (i % 4 == 3)
            randomEdits.measure([&] { peer.remove(location); });
        else
            randomEdits.measure([&] { peer.insert(location, i % 4 == 1 ? '\n' : 'x'); });
    }
    report("randomEdit", randomEdits, 1);
    Samples keystrokes;
    std::int64_t place = random(peer.length());
    const TimeLimit typing;
    for (int i = 0; i < 10'000 && !typing.isOver(); ++i, ++place)
        keystrokes.measure([&] { peer.insert(place, 'k'); });
    report("keystroke", keystrokes, 1);
}

} // namespace tessarine
