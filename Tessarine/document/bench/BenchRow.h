#pragma once

#include "Tessarine/document/bench/Samples.h"

#include <cstdio>
#include <string>

namespace tessarine {

// Nanoseconds in one.
inline constexpr double milliseconds = 1e6;
inline constexpr double microseconds = 1e3;

inline void printRow(const std::string& name, Samples& samples, double unit, const char* unitName) {
    std::printf("%-58s %10.3f %10.3f  %s\n", name.c_str(), samples.median() / unit, samples.p99() / unit,
                unitName);
    std::fflush(stdout);
}

} // namespace tessarine
