#include "platform/mirror/tests/Simulation.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

// mirror_soak SEED [COUNT]: simulates the seeds from SEED on, and prints those that fail. With --must-fail
// instead of nothing in front, that a seed fails is what is asked for.
int main(int argc, char** argv) {
    const bool mustFail = argc > 1 && std::strcmp(argv[1], "--must-fail") == 0;
    const int first = mustFail ? 2 : 1;
    if (argc <= first) {
        std::fprintf(stderr, "usage: mirror_soak [--must-fail] SEED [COUNT]\n");
        return EXIT_FAILURE;
    }
    const std::uint64_t start = std::strtoull(argv[first], nullptr, 10);
    const std::uint64_t count = argc > first + 1 ? std::strtoull(argv[first + 1], nullptr, 10) : 1;
    int failed = 0;
    for (std::uint64_t seed = start; seed < start + count; ++seed) {
        const auto fault = simulation::Simulation(seed).run();
        if (!fault) continue;
        ++failed;
        std::printf("seed %llu: %s\n", static_cast<unsigned long long>(seed), fault->c_str());
        std::fflush(stdout);
        if (mustFail) break;
    }
    std::printf("%llu seeds, %d failed\n", static_cast<unsigned long long>(count), failed);
    return (failed > 0) == mustFail ? EXIT_SUCCESS : EXIT_FAILURE;
}
