#include "Tessarine/base/UUID.h"

#include <cstdint>
#include <random>
#include <string_view>

namespace tessarine {

namespace {

std::mt19937_64 seededEngine() {
    std::random_device device;
    std::seed_seq seeds{device(), device(), device(), device(), device(), device(), device(), device()};
    return std::mt19937_64(seeds);
}

} // namespace

std::string freshUUID() {
    thread_local std::mt19937_64 engine = seededEngine();
    // x is any digit, y one that tells the layout of the rest.
    std::string text = "xxxxxxxx-xxxx-4xxx-yxxx-xxxxxxxxxxxx";
    const std::uint64_t halves[] = {engine(), engine()};
    int taken = 0;
    for (char& character : text) {
        if (character != 'x' && character != 'y') continue;
        const std::uint64_t digit = halves[taken / 16] >> 4 * (taken % 16) & 0xF;
        character = "0123456789ABCDEF"[character == 'x' ? digit : 8 + digit % 4];
        ++taken;
    }
    return text;
}

} // namespace tessarine
