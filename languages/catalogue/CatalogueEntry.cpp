#include "languages/catalogue/CatalogueEntry.h"

#include "languages/catalogue/IndentationScopes.h"

namespace tessarine::languages {

namespace {

// A language whose grammar and bundle have its name.
constexpr CatalogueEntry entry(Language language, std::string_view name,
                               const TreeSitterIndentationScopes* (*scopes)() = nullptr) {
    return {language, name, name, name, "highlights", "", scopes};
}

constexpr CatalogueEntry injecting(CatalogueEntry entry) {
    entry.injections = "injections";
    return entry;
}

constexpr CatalogueEntry table[] = {
    entry(Language::Bash, "Bash", scopes::bash),
    entry(Language::C, "C", scopes::c),
    entry(Language::CPP, "CPP"),
    entry(Language::CSS, "CSS", scopes::css),
    entry(Language::CSharp, "CSharp"),
    entry(Language::Comment, "Comment"),
    entry(Language::Elixir, "Elixir"),
    entry(Language::Elm, "Elm"),
    entry(Language::Go, "Go"),
    injecting(entry(Language::HTML, "HTML", scopes::html)),
    entry(Language::JSDoc, "JSDoc"),
    entry(Language::JSON, "JSON", scopes::json),
    injecting(entry(Language::JSON5, "JSON5", scopes::json)),
    entry(Language::Java, "Java"),
    injecting(entry(Language::JavaScript, "JavaScript")),
    {Language::JavaScriptJSX, "JavaScriptJSX", "JavaScript", "JavaScript", "highlights-jsx", "injections",
     scopes::javaScriptJSX},
    injecting(entry(Language::LaTeX, "LaTeX")),
    entry(Language::Lua, "Lua"),
    injecting(entry(Language::Markdown, "Markdown")),
    entry(Language::OCaml, "OCaml"),
    injecting(entry(Language::PHP, "PHP", scopes::php)),
    entry(Language::Perl, "Perl"),
    entry(Language::Python, "Python", scopes::python),
    entry(Language::R, "R"),
    entry(Language::Regex, "Regex"),
    entry(Language::Ruby, "Ruby", scopes::ruby),
    injecting(entry(Language::Rust, "Rust", scopes::rust)),
    entry(Language::SCSS, "SCSS"),
    injecting(entry(Language::Svelte, "Svelte")),
    entry(Language::Swift, "Swift", scopes::swift),
    entry(Language::TOML, "TOML"),
    injecting(entry(Language::TSX, "TSX")),
    entry(Language::TypeScript, "TypeScript"),
    entry(Language::YAML, "YAML"),
};

constexpr CatalogueEntry markdownInline{
    Language::Markdown,  "MarkdownInline",    "MarkdownInline", "Markdown",
    "highlights-inline", "injections-inline", nullptr};

constexpr bool isInOrder() {
    int index = 0;
    for (const CatalogueEntry& each : table)
        if (static_cast<int>(each.language) != index++) return false;
    return true;
}

static_assert(isInOrder());

} // namespace

std::span<const CatalogueEntry> catalogueEntries() {
    return table;
}

const CatalogueEntry& entryOf(Language language) {
    return table[static_cast<std::size_t>(language)];
}

const CatalogueEntry& markdownInlineEntry() {
    return markdownInline;
}

} // namespace tessarine::languages
