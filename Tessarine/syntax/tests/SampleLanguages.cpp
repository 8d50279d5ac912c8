#include "Tessarine/syntax/tests/SampleLanguages.h"

#include "languages/grammars/Grammars.h"

namespace tessarine {

namespace {

constexpr auto javaScriptHighlights = R"(
(identifier) @variable
((identifier) @constant (#match? @constant "^[A-Z][A-Z0-9_]*$"))
((identifier) @variable.builtin (#eq? @variable.builtin "arguments"))
(call_expression function: (identifier) @function)
(string) @string
(template_string) @string
(number) @number
(comment) @comment
(regex) @string.regexp
["function" "return" "let" "const" "if" "else" "class" "new"] @keyword
)";

constexpr auto javaScriptInjections = R"(
((comment) @content.jsdoc (#match? @content.jsdoc "^/\\*\\*") )
((regex_pattern) @regex)
((call_expression function: (identifier) @name arguments: (template_string) @css) (#eq? @name "css"))
)";

constexpr auto htmlInjections = R"(
(script_element (raw_text) @javascript)
((style_element (raw_text) @anything) (#set! injection.language "css"))
)";

constexpr auto markdownInjections = R"(
(fenced_code_block (info_string (language) @language) (code_fence_content) @content)
((inline) @markdown_inline)
(html_block) @html
)";

} // namespace

std::shared_ptr<const TreeSitterLanguage> sampleLanguage(std::string_view grammar, std::string highlights,
                                                         std::string injections) {
    using Query = TreeSitterLanguage::Query;
    std::optional<Query> injectionsQuery;
    if (!injections.empty()) injectionsQuery = Query(std::move(injections));
    return std::make_shared<const TreeSitterLanguage>(languages::grammarNamed(grammar),
                                                      Query(std::move(highlights)), injectionsQuery);
}

std::shared_ptr<const SampleLanguages> SampleLanguages::shared() {
    static const auto languages = [] {
        auto all = std::make_shared<SampleLanguages>();
        all->add("javascript", sampleLanguage("JavaScript", javaScriptHighlights, javaScriptInjections));
        all->add("content.jsdoc",
                 sampleLanguage("JSDoc", "(tag_name) @keyword (type) @type (identifier) @name"));
        all->add(
            "regex",
            sampleLanguage("Regex", "(character_class) @class (any_character) @any [\"(\" \")\"] @bracket"));
        all->add("css",
                 sampleLanguage("CSS", "(property_name) @property (tag_name) @tag (integer_value) @number"));
        all->add("html",
                 sampleLanguage("HTML", "(tag_name) @tag (attribute_name) @attribute (comment) @comment",
                                htmlInjections));
        all->add("markdown", sampleLanguage("Markdown", "(atx_heading) @title (fenced_code_block) @code",
                                            markdownInjections));
        all->add("markdown_inline",
                 sampleLanguage("MarkdownInline", "(emphasis) @emphasis (code_span) @code"));
        all->add("c", sampleLanguage("C", R"((identifier) @variable (comment) @comment
            (primitive_type) @type (number_literal) @number (string_literal) @string ["return" "if"] @keyword
            ((identifier) @constant (#match? @constant "^[A-Z_]+$")))"));
        return all;
    }();
    return languages;
}

std::shared_ptr<const TreeSitterLanguage> SampleLanguages::treeSitterLanguage(std::string_view name) const {
    const auto found = m_languages.find(name);
    return found == m_languages.end() ? nullptr : found->second;
}

std::string_view grammarName(const TSLanguage* language) {
    for (const languages::Grammar& grammar : languages::grammars())
        if (grammar.language() == language) return grammar.name;
    return "none";
}

} // namespace tessarine
