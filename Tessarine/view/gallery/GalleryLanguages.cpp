#include "Tessarine/view/gallery/GalleryLanguages.h"

#include "Tessarine/syntax/tests/SampleLanguages.h"

namespace tessarine {

namespace {

constexpr auto c = R"scm(
(comment) @comment
[(string_literal) (system_lib_string)] @string
(number_literal) @number
(primitive_type) @keyword
["return" "if" "for" "struct" "static" "const" "#include" "#define"] @keyword
(call_expression function: (identifier) @function)
(function_declarator declarator: (identifier) @function)
(field_identifier) @property
["=" "+" "*" "<" "->" "++" "+="] @operator
["(" ")" "{" "}" "[" "]" ";" ","] @punctuation
)scm";

constexpr auto html = R"scm(
(tag_name) @keyword
(attribute_name) @property
(quoted_attribute_value) @string
(comment) @comment
["<" ">" "</" "/>" "="] @punctuation
)scm";

constexpr auto htmlInjections = R"scm(
(script_element (raw_text) @javascript)
(style_element (raw_text) @css)
)scm";

constexpr auto css = R"scm(
(property_name) @property
[(tag_name) (class_name)] @function
[(integer_value) (color_value)] @number
["{" "}" ":" ";"] @punctuation
)scm";

constexpr auto javaScript = R"scm(
(comment) @comment
[(string) (template_string)] @string
(number) @number
["const" "function" "return" "if" "new" "let"] @keyword
(this) @variable.builtin
(call_expression function: (identifier) @function)
(call_expression function: (member_expression property: (property_identifier) @function))
(property_identifier) @property
["=" "=>" "+" "*"] @operator
["(" ")" "{" "}" ";" "," "."] @punctuation
)scm";

constexpr auto markdown = R"scm(
(atx_heading) @keyword
(fenced_code_block_delimiter) @punctuation
(info_string) @property
)scm";

constexpr auto markdownInjections = R"scm(
(fenced_code_block (info_string (language) @language) (code_fence_content) @content)
((inline) @markdown_inline)
)scm";

constexpr auto markdownInline = R"scm(
(strong_emphasis) @keyword
(emphasis) @function
(code_span) @string
(link_text) @property
)scm";

} // namespace

GalleryLanguages::GalleryLanguages()
    : m_languages{{"c", sampleLanguage("C", c)},
                  {"html", sampleLanguage("HTML", html, htmlInjections)},
                  {"css", sampleLanguage("CSS", css)},
                  {"javascript", sampleLanguage("JavaScript", javaScript)},
                  {"markdown", sampleLanguage("Markdown", markdown, markdownInjections)},
                  {"markdown_inline", sampleLanguage("MarkdownInline", markdownInline)}} {}

std::shared_ptr<const TreeSitterLanguage> GalleryLanguages::treeSitterLanguage(std::string_view name) const {
    const auto found = m_languages.find(name);
    return found == m_languages.end() ? nullptr : found->second;
}

} // namespace tessarine
