#pragma once

#include <string>
#include <string_view>

namespace tessarine {

// The sample of a grammar, by the build's name for it.
std::u16string sampleText(std::string_view grammar);

} // namespace tessarine
