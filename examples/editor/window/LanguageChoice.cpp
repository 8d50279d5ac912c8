#include "examples/editor/window/LanguageChoice.h"

#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"
#include "languages/catalogue/LanguageNames.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace tessarine::editor {

namespace {

constexpr std::chrono::milliseconds reparseBudget{1};
constexpr std::int64_t longestFirstLine = 200; // code units

constexpr std::array titles{LanguageTitle{Language::Bash, u"Bash"},
                            LanguageTitle{Language::C, u"C"},
                            LanguageTitle{Language::CSharp, u"C#"},
                            LanguageTitle{Language::CPP, u"C++"},
                            LanguageTitle{Language::CSS, u"CSS"},
                            LanguageTitle{Language::Elixir, u"Elixir"},
                            LanguageTitle{Language::Elm, u"Elm"},
                            LanguageTitle{Language::Go, u"Go"},
                            LanguageTitle{Language::HTML, u"HTML"},
                            LanguageTitle{Language::Java, u"Java"},
                            LanguageTitle{Language::JavaScript, u"JavaScript"},
                            LanguageTitle{Language::JavaScriptJSX, u"JavaScript with JSX"},
                            LanguageTitle{Language::JSON, u"JSON"},
                            LanguageTitle{Language::JSON5, u"JSON5"},
                            LanguageTitle{Language::LaTeX, u"LaTeX"},
                            LanguageTitle{Language::Lua, u"Lua"},
                            LanguageTitle{Language::Markdown, u"Markdown"},
                            LanguageTitle{Language::OCaml, u"OCaml"},
                            LanguageTitle{Language::Perl, u"Perl"},
                            LanguageTitle{Language::PHP, u"PHP"},
                            LanguageTitle{Language::Python, u"Python"},
                            LanguageTitle{Language::R, u"R"},
                            LanguageTitle{Language::Ruby, u"Ruby"},
                            LanguageTitle{Language::Rust, u"Rust"},
                            LanguageTitle{Language::SCSS, u"SCSS"},
                            LanguageTitle{Language::Svelte, u"Svelte"},
                            LanguageTitle{Language::Swift, u"Swift"},
                            LanguageTitle{Language::TOML, u"TOML"},
                            LanguageTitle{Language::TSX, u"TSX"},
                            LanguageTitle{Language::TypeScript, u"TypeScript"},
                            LanguageTitle{Language::YAML, u"YAML"}};

std::string firstLine(const TextSnapshot& text) {
    const std::u16string start = text.substring(0, std::min(text.length(), longestFirstLine));
    const auto view = std::u16string_view(start).substr(0, start.find_first_of(u"\r\n"));
    return QString::fromUtf16(view.data(), static_cast<qsizetype>(view.size())).toStdString();
}

} // namespace

std::span<const LanguageTitle> languageTitles() {
    return titles;
}

QString languageTitle(std::optional<Language> language) {
    const auto* const found = std::ranges::find(titles, language, &LanguageTitle::language);
    const std::u16string_view title = found == titles.end() ? u"Plain Text" : found->title;
    return QString::fromUtf16(title.data(), static_cast<qsizetype>(title.size()));
}

std::optional<Language> languageOf(const QString& path, const TextSnapshot& text) {
    return languages::languageOfFile(path.toStdString(), firstLine(text));
}

TreeSitterLanguageMode languageMode(Language language) {
    static const auto provider = std::make_shared<languages::CatalogueLanguageProvider>();
    TreeSitterLanguageMode mode(languages::treeSitterLanguage(language), provider);
    mode.setReparseBudget(reparseBudget);
    return mode;
}

} // namespace tessarine::editor
