; The description has no colour of its own: it shows that of the comment around it.

(tag_name) @keyword.tag
(type) @property.type
(tag ["{" "}"] @punctuation.bracket)
(inline_tag ["{" "}"] @punctuation.bracket)

(identifier) @variable.builtin.name
(number) @number
(optional_identifier ["[" "]"] @punctuation.bracket)
(optional_identifier "=" @operator)
(member_expression ["." "#" "~"] @punctuation.delimiter)
(qualified_expression ":" @punctuation.delimiter)
(path_expression "/" @punctuation.delimiter)
(array_expression ["[" "]"] @punctuation.bracket)
(array_expression "," @punctuation.delimiter)

(code_block_language) @property
(code_block_line) @string.code
(code_block "```" @punctuation.delimiter)
