(tag_name) @keyword.tag
(erroneous_end_tag_name) @variable.builtin.error
(attribute_name) @property.attribute
(attribute_value) @string
(quoted_attribute_value) @string
(attribute "=" @operator)
(entity) @property.escape
(doctype) @keyword.directive
(comment) @comment

["<" ">" "</" "/>" "<!"] @punctuation.bracket
