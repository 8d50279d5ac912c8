(variable) @variable.builtin
(js_comment) @comment
(placeholder) @number.class
(interpolation ["#{" "}"] @punctuation.special)

["@at-root" "@debug" "@each" "@else" "@error" "@extend" "@for" "@forward" "@function" "@if" "@include" "@mixin"
 "@return" "@use" "@warn" "@while"] @keyword
["from" "in" "through" (to)] @keyword
(else_if_clause "if" @keyword)

(mixin_statement name: (identifier) @function)
(function_statement name: (identifier) @function)
(include_statement (identifier) @function)
(argument name: (variable) @property.parameter)

["!=" "%" "<" "<=" "==" ">="] @operator
