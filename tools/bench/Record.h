#pragma once

#include <cstdlib>
#include <errno.h>
#include <fstream>
#include <string>

// What a benchmark has measured, for the tables and plots that tools/bench/tables.py makes.
namespace bench {

struct Record {
    std::string row; // what was measured; spaces in front are for the eye
    std::string who; // whose figure it is
    double median = 0;
    double p99 = 0;
    std::string unit;
    double size = 0; // of what the row grows with, 0 where there is nothing
};

// Appends a line of JSON to the file that BENCH_RESULTS names, or does nothing without one. Texts have no
// quotes.
inline void keep(const Record& record) {
    const char* path = std::getenv("BENCH_RESULTS");
    if (!path) return;
    std::ofstream(path, std::ios::app)
        << "{\"bench\": \"" << program_invocation_short_name << "\", \"row\": \"" << record.row
        << "\", \"who\": \"" << record.who << "\", \"median\": " << record.median
        << ", \"p99\": " << record.p99 << ", \"unit\": \"" << record.unit << "\", \"size\": " << record.size
        << "}\n";
}

} // namespace bench
