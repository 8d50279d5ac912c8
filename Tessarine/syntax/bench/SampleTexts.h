#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace tessarine {

// Texts of about so many characters that look like source of a language; the same on every machine.
class SampleTexts {
public:
    static std::u16string c(std::size_t size) {
        return grown(size, [](std::string& text, const std::string& n, int i) {
            text +=
                "/* Adds " + n + ". */\nstatic int function" + n + "(const char *name, size_t length) {\n" +
                "    int result = 0;\n    for (size_t i = 0; i < length; ++i) {\n        if (name[i] != '" +
                static_cast<char>('a' + i % 26) + "') result += compute(name, 0x" + n +
                ");\n    }\n    return result + LIMIT_" + n + ";\n}\n\n";
        });
    }

    static std::u16string javaScript(std::size_t size) {
        return grown(size, [](std::string& text, const std::string& n, int) {
            text += "/** @param {number} a of " + n + " */\nexport function f" + n +
                    "(a, b) {\n  const pattern = /[a-z]+" + n +
                    "/g;\n  if (a > b) {\n    return `${a} and ${b}`;\n  }\n  return { key: [a, " + n +
                    "], other: pattern.test('text') };\n}\n\n";
        });
    }

    static std::u16string markdown(std::size_t size) {
        return grown(size, [](std::string& text, const std::string& n, int i) {
            text += "# Title " + n + "\n\nSome *text* with `code` and a [link](to/" + n + ").\n\n";
            text += i % 2 == 0 ? "```javascript\nconst a = " + n + ";\nf(a);\n```\n\n"
                               : "```css\np { top: " + n + "px }\n```\n\n";
        });
    }

    static std::u16string page(int scripts) {
        std::string text = "<html>\n<body>\n";
        for (int i = 0; i < scripts; ++i) {
            const std::string n = std::to_string(i);
            text += "<div class=\"block\">\n  <p>Text of block " + n + "</p>\n</div>\n<script>\nconst value" +
                    n + " = " + n + ";\nfunction f" + n + "(a) { return a + value" + n + "; }\nf" + n +
                    "(1);\n</script>\n";
        }
        text += "</body>\n</html>\n";
        return {text.begin(), text.end()};
    }

    static std::u16string brackets(std::size_t depth) {
        return std::u16string(depth, u'[') + std::u16string(depth, u']');
    }

    static std::u16string oneLine(std::size_t size) {
        return grown(size, [](std::string& text, const std::string& n, int) {
            text += "int function" + n + "(int d) { return d + " + n + "; } ";
        });
    }

private:
    template <class Add>
    static std::u16string grown(std::size_t size, Add add) {
        std::mt19937_64 random(1);
        std::string text;
        for (int i = 0; text.size() < size; ++i)
            add(text, std::to_string(random() % 100'000), i);
        return {text.begin(), text.end()};
    }
};

} // namespace tessarine
