#pragma once

#include <random>
#include <string>

namespace tessarine {

// Lines of generated C, some 53 bytes each.
inline std::string sourceText(int lines) {
    std::mt19937 random(1);
    std::string text;
    for (int line = 1; line < lines; ++line) {
        const std::string number = std::to_string(random() % 100'000);
        text.append(4 * (random() % 4), ' ');
        if (line % 12 == 0)
            text += "static int function" + number + "(const char *name, size_t length) {\n";
        else if (line % 12 == 11)
            text += "}\n";
        else
            text += "if (value[" + number + "] != 0x" + number + ") total += name[" + number + "];\n";
    }
    return text;
}

} // namespace tessarine
