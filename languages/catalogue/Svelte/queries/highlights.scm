(tag_name) @keyword.tag
((tag_name) @property.type.component
  (#match? @property.type.component "^[A-Z]"))
(erroneous_end_tag_name) @variable.builtin.error
(attribute_name) @property.attribute
((attribute_name) @keyword.directive
  (#match? @keyword.directive "^(on|bind|class|style|use|in|out|transition|animate|let):"))
(attribute_value) @string
(quoted_attribute_value ["\"" "'"] @string)
(attribute "=" @operator)
(entity) @property.escape
(doctype) @keyword.directive
(comment) @comment

; Blocks

["as" "await" "catch" "const" "debug" "each" "else" "else if" "html" "if" "key" "render" "snippet" "then"] @keyword
(snippet_name) @function

["<" ">" "</" "/>" "<!"] @punctuation.bracket
["{" "}" "#" "/" ":" "@"] @punctuation.special
