#include "languages/catalogue/IndentationScopes.h"

namespace tessarine::languages::scopes {

const TreeSitterIndentationScopes* bash() {
    static const TreeSitterIndentationScopes scopes{.indent = {"if_statement", "else", "while_statement",
                                                               "for_statement", "function_definition",
                                                               "do_group"},
                                                    .inheritIndent = {},
                                                    .outdent = {"fi", "done"}};
    return &scopes;
}

const TreeSitterIndentationScopes* c() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"compound_statement", "parameter_list", "initializer_list"},
        .inheritIndent = {},
        .outdent = {"}"}};
    return &scopes;
}

const TreeSitterIndentationScopes* css() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"block"}, .inheritIndent = {}, .outdent = {"}"}};
    return &scopes;
}

const TreeSitterIndentationScopes* html() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"start_tag", "element"}, .inheritIndent = {}, .outdent = {"end_tag"}};
    return &scopes;
}

const TreeSitterIndentationScopes* javaScriptJSX() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"array", "object", "arguments", "statement_block", "class_body",
                   "parenthesized_expression", "jsx_element", "jsx_opening_element", "jsx_expression",
                   "switch_body"},
        .inheritIndent = {},
        .outdent = {"else", "}", "]"}};
    return &scopes;
}

const TreeSitterIndentationScopes* json() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"object", "array"}, .inheritIndent = {}, .outdent = {"}", "]"}};
    return &scopes;
}

const TreeSitterIndentationScopes* php() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"compound_statement", "formal_parameters", "array_creation_expression"},
        .inheritIndent = {},
        .outdent = {"}"}};
    return &scopes;
}

const TreeSitterIndentationScopes* python() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"function_definition", "for_statement", "class_definition", "elif_clause", "else_clause",
                   "except_clause", "while_statement", "if_statement", "try_statement"},
        .inheritIndent = {},
        .outdent = {},
        .whitespaceDenotesBlocks = true};
    return &scopes;
}

const TreeSitterIndentationScopes* ruby() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"class", "method", "singleton_method", "module", "call", "if", "block", "do_block", "hash",
                   "array", "argument_list", "case", "def", "while"},
        .inheritIndent = {"elsif", "else"},
        .outdent = {"else", "elsif"}};
    return &scopes;
}

const TreeSitterIndentationScopes* rust() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"mod_item", "struct_item", "enum_item", "impl_item", "for_expression", "struct_expression",
                   "match_expression", "tuple_expression", "match_arm", "match_block", "if_let_expression",
                   "call_expression", "assignment_expression", "arguments", "block", "where_clause",
                   "use_list"},
        .inheritIndent = {},
        .outdent = {"}"}};
    return &scopes;
}

const TreeSitterIndentationScopes* swift() {
    static const TreeSitterIndentationScopes scopes{
        .indent = {"protocol_body", "class_body", "computed_property", "computed_getter", "computed_setter",
                   "function_body", "if_statement", "lambda_literal", "array_literal", "dictionary_literal",
                   "switch_entry"},
        .inheritIndent = {},
        .outdent = {"else", "}", "]"}};
    return &scopes;
}

} // namespace tessarine::languages::scopes
