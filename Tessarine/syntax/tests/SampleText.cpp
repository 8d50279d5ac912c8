#include "Tessarine/syntax/tests/SampleText.h"

#include <fstream>
#include <sstream>
#include <unicode/unistr.h>

namespace tessarine {

std::u16string sampleText(std::string_view grammar) {
    std::ostringstream text;
    text << std::ifstream(std::string(SAMPLES) + "/" + std::string(grammar) + ".txt").rdbuf();
    const auto units = icu::UnicodeString::fromUTF8(text.str());
    return {units.getBuffer(), static_cast<std::size_t>(units.length())};
}

} // namespace tessarine
