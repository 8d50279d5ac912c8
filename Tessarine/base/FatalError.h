#pragma once

#include <string_view>

namespace tessarine {

// Stops the program for a broken invariant. Prints `message` to standard error and aborts, so that a core
// dump and a debugger see the place. For faults of the program only; whatever a document can cause is a
// value.
[[noreturn]] void fatalError(std::string_view message);

} // namespace tessarine
