#include "languages/catalogue/LanguageNames.h"

#include "languages/catalogue/LanguageNamesTable.h"

#include <algorithm>
#include <string>

namespace tessarine::languages {

namespace {

using List = std::string_view LanguageNames::*;

// ASCII alone: no name of a language has a letter of another kind.
std::string lowercase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

std::optional<Language> languageWith(std::string_view word, List list) {
    if (word.empty() || word.find(' ') != std::string_view::npos) return std::nullopt;
    const std::string whole = ' ' + std::string(word) + ' ';
    for (const LanguageNames& names : languageNames)
        if ((names.*list).find(whole) != std::string_view::npos) return names.language;
    return std::nullopt;
}

std::string_view behindLast(std::string_view text, char separator) {
    return text.substr(text.rfind(separator) + 1); // npos + 1 is 0
}

std::optional<Language> languageOfName(std::string_view file) {
    if (const auto language = languageWith(file, &LanguageNames::files)) return language;
    const std::size_t dot = file.rfind('.');
    if (dot == std::string_view::npos) return std::nullopt;
    return languageWith(lowercase(file.substr(dot + 1)), &LanguageNames::extensions);
}

std::string_view takeWord(std::string_view& line) {
    constexpr std::string_view blanks = " \t\r\n";
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const std::string_view word = line.substr(0, line.find_first_of(blanks));
    line.remove_prefix(word.size());
    return word;
}

bool isOptionOrVariable(std::string_view word) {
    return word.starts_with('-') || word.find('=') != std::string_view::npos;
}

std::string_view interpreterIn(std::string_view line) {
    if (!line.starts_with("#!")) return {};
    line.remove_prefix(2);
    std::string_view word = behindLast(takeWord(line), '/');
    if (word != "env") return word;
    do
        word = takeWord(line);
    while (isOptionOrVariable(word));
    return behindLast(word, '/');
}

std::string_view withoutVersion(std::string_view interpreter) {
    const std::size_t last = interpreter.find_last_not_of("0123456789.-");
    return interpreter.substr(0, last + 1); // npos + 1 is 0
}

} // namespace

std::optional<Language> languageNamed(std::string_view name) {
    return languageWith(lowercase(name), &LanguageNames::names);
}

std::optional<Language> languageOfFile(std::string_view path, std::string_view firstLine) {
    if (const auto language = languageOfName(behindLast(path, '/'))) return language;
    return languageWith(withoutVersion(interpreterIn(firstLine)), &LanguageNames::interpreters);
}

} // namespace tessarine::languages
