#pragma once

#include "languages/catalogue/Language.h"

#include <string_view>

namespace tessarine::languages {

// Lists of words, each with a space before and behind it.
struct LanguageNames {
    Language language;
    std::string_view names; // in lower case
    std::string_view extensions;
    std::string_view files;
    std::string_view interpreters; // without the version at the end
};

inline constexpr LanguageNames languageNames[] = {
    {Language::Bash, " bash sh shell zsh ksh shellscript shell-script console ",
     " sh bash zsh ksh bats ebuild ",
     " .bashrc .bash_profile .bash_aliases .bash_logout .profile .zshrc .zshenv .zprofile PKGBUILD APKBUILD ",
     " sh bash dash zsh ksh ash "},
    {Language::C, " c h ", " c h ", "", " tcc "},
    {Language::CPP, " cpp c++ cxx cc hpp cplusplus ", " cpp cc cxx c++ hpp hh hxx h++ ipp tpp inl ixx cppm ",
     "", ""},
    {Language::CSS, " css ", " css ", "", ""},
    {Language::CSharp, " csharp c# cs c_sharp ", " cs csx ", "", " dotnet-script "},
    {Language::Comment, " comment ", "", "", ""},
    {Language::Elixir, " elixir ex exs ", " ex exs ", " mix.lock ", " elixir "},
    {Language::Elm, " elm ", " elm ", "", ""},
    {Language::Go, " go golang ", " go ", "", ""},
    {Language::HTML, " html htm xhtml html5 ", " html htm xhtml shtml ", "", ""},
    {Language::JSDoc, " jsdoc ", "", "", ""},
    {Language::JSON, " json jsonl ndjson geojson ", " json jsonl ndjson geojson webmanifest har ipynb ",
     " .prettierrc composer.lock ", ""},
    {Language::JSON5, " json5 jsonc ", " json5 jsonc code-workspace ",
     " .babelrc .eslintrc .swcrc tsconfig.json jsconfig.json ", ""},
    {Language::Java, " java ", " java jav ", "", ""},
    {Language::JavaScript, " javascript js ecmascript es6 mjs cjs node ", " js mjs cjs es6 ", " Jakefile ",
     " node nodejs "},
    {Language::JavaScriptJSX, " javascriptjsx jsx javascriptreact react ", " jsx ", "", ""},
    {Language::LaTeX, " latex tex ", " tex latex ltx sty cls dtx ", "", ""},
    {Language::Lua, " lua luau ", " lua rockspec ", " .luacheckrc ", " lua luajit "},
    {Language::Markdown, " markdown md mkd mdown ", " md markdown mkd mdown mkdn mdwn ", "", ""},
    {Language::OCaml, " ocaml ml ", " ml ", " .ocamlinit ", " ocaml ocamlrun ocamlscript "},
    {Language::PHP, " php php3 php4 php5 phtml ", " php php3 php4 php5 phtml phps ", "", " php "},
    {Language::Perl, " perl pl perl5 ", " pl pm t pod psgi cgi ",
     " cpanfile Makefile.PL Build.PL .perltidyrc ", " perl "},
    {Language::Python, " python py python3 py3 pyi gyp ", " py pyi pyw py3 gyp bzl ",
     " SConstruct SConscript wscript ", " python pypy "},
    {Language::R, " r rscript splus ", " r rprofile ", " .Rprofile ", " Rscript "},
    {Language::Regex, " regex regexp ", "", "", ""},
    {Language::Ruby, " ruby rb jruby ", " rb rbw rake gemspec podspec ru ",
     " Rakefile Gemfile Podfile Vagrantfile Guardfile Capfile Fastfile Brewfile .irbrc .pryrc ",
     " ruby jruby macruby rake "},
    {Language::Rust, " rust rs ", " rs ", "", " rust-script "},
    {Language::SCSS, " scss ", " scss ", "", ""},
    {Language::Svelte, " svelte ", " svelte ", "", ""},
    {Language::Swift, " swift ", " swift ", "", " swift "},
    {Language::TOML, " toml ", " toml ", " Cargo.lock Pipfile poetry.lock uv.lock ", ""},
    {Language::TSX, " tsx typescriptreact ", " tsx ", "", ""},
    {Language::TypeScript, " typescript ts mts cts ", " ts mts cts ", "", " deno ts-node tsx bun "},
    {Language::YAML, " yaml yml ", " yaml yml ", " .clang-format .clang-tidy .clangd ", ""},
};

} // namespace tessarine::languages
