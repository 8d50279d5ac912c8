// The grammars that the build has, each under the name that the build's table gives it ("CSharp",
// "MarkdownInline").
//
// Languages are static and immutable: any thread may use them, and none is ever freed. To use one takes the
// parser, whose functions come with the engine.
#pragma once

#include <span>
#include <string_view>

struct TSLanguage;

namespace tessarine::languages {

struct Grammar {
    std::string_view name;
    const TSLanguage* (*language)();
};

// All of them, in the order of the table.
std::span<const Grammar> grammars();

// Null where no grammar has that name; case counts.
const TSLanguage* grammarNamed(std::string_view name);

} // namespace tessarine::languages
