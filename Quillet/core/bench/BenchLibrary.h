#pragma once

namespace quillet {

// Fills the shared library with so many snippets of 2 KB of code each, in 12 languages, one of 20 tags and
// one of 50 folders each, and saves. False where that failed.
bool fillBenchLibrary(int snippets);

} // namespace quillet
