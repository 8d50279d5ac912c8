#pragma once

namespace tessarine::languages {

// The languages that the catalogue has, in the order of its table. JavaScriptJSX is JavaScript with tags in
// it.
enum class Language {
    Bash,
    C,
    CPP,
    CSS,
    CSharp,
    Comment,
    Elixir,
    Elm,
    Go,
    HTML,
    JSDoc,
    JSON,
    JSON5,
    Java,
    JavaScript,
    JavaScriptJSX,
    LaTeX,
    Lua,
    Markdown,
    OCaml,
    PHP,
    Perl,
    Python,
    R,
    Regex,
    Ruby,
    Rust,
    SCSS,
    Svelte,
    Swift,
    TOML,
    TSX,
    TypeScript,
    YAML,
};

} // namespace tessarine::languages
