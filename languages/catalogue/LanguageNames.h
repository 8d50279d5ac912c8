// What a language is called: by people and by other languages, by the names of its files, by what runs them.
#pragma once

#include "languages/catalogue/Language.h"

#include <optional>
#include <string_view>

namespace tessarine::languages {

// By a name such as "C++", "cpp" or "yml"; case does not count.
std::optional<Language> languageNamed(std::string_view name);

// By a file's name or path, else by its first line if that names an interpreter ("#!/usr/bin/env python3").
// Case counts in names of files, not in their extensions.
std::optional<Language> languageOfFile(std::string_view path, std::string_view firstLine = {});

} // namespace tessarine::languages
