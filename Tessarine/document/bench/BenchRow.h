#pragma once

#include "Tessarine/document/bench/Samples.h"
#include "tools/bench/Record.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace tessarine {

// Nanoseconds in one.
inline constexpr double milliseconds = 1e6;
inline constexpr double microseconds = 1e3;

inline void printFigures(const std::string& name, Samples& samples, double unit, const char* unitName) {
    std::printf("%-58s %10.3f %10.3f  %s\n", name.c_str(), samples.median() / unit, samples.p99() / unit,
                unitName);
    std::fflush(stdout);
}

// The name of the row above those that are set in, which belong to it.
inline std::string& leadingRow() {
    static std::string name;
    return name;
}

inline void printRow(const std::string& name, Samples& samples, double unit, const char* unitName) {
    if (!name.starts_with(' ')) leadingRow() = name;
    printFigures(name, samples, unit, unitName);
    const std::string row = name.starts_with(' ') ? leadingRow() + "," + name.substr(1) : name;
    bench::keep({row, "Tessarine", samples.median() / unit, samples.p99() / unit, unitName});
}

// One row of those that show how a cost grows with a document.
inline void printGrowingRow(const std::string& name, std::int64_t lines, Samples& samples, double unit,
                            const char* unitName) {
    printFigures(name + ", " + std::to_string(lines) + " lines", samples, unit, unitName);
    bench::keep({name, "Tessarine", samples.median() / unit, samples.p99() / unit, unitName,
                 static_cast<double>(lines)});
}

// What the parsing library alone takes for the work of the row above.
inline void printLibraryRow(const std::string& note, Samples& samples, double unit, const char* unitName) {
    printFigures("  library, " + note, samples, unit, unitName);
    bench::keep({leadingRow(), "tree-sitter", samples.median() / unit, samples.p99() / unit, unitName});
}

} // namespace tessarine
