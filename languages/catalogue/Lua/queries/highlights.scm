; Names

(dot_index_expression field: (identifier) @property)
(field name: (identifier) @property)
(label_statement (identifier) @property.label)
(goto_statement (identifier) @property.label)
(attribute (identifier) @keyword.attribute)
(attribute ["<" ">"] @punctuation.bracket)

((identifier) @number @constant
  (#match? @constant "^[A-Z][A-Z0-9_]+$"))
((identifier) @variable.builtin
  (#match? @variable.builtin "^(self|_G|_ENV|_VERSION|coroutine|debug|io|math|os|package|string|table|utf8)$"))

(parameters (identifier) @variable.parameter)

((parameters (identifier) @variable.builtin.self)
  (#eq? @variable.builtin.self "self"))

; Functions

(function_declaration name: (identifier) @function.definition)
(function_declaration name: (dot_index_expression field: (identifier) @function.definition))
(function_declaration name: (method_index_expression method: (identifier) @function.definition))
(assignment_statement
  (variable_list name: (identifier) @function.definition)
  (expression_list value: (function_definition)))
(assignment_statement
  (variable_list name: (dot_index_expression field: (identifier) @function.definition))
  (expression_list value: (function_definition)))
(field
  name: (identifier) @function.definition
  value: (function_definition))
(function_call name: (identifier) @function)
(function_call name: (dot_index_expression field: (identifier) @function.method))
(function_call name: (method_index_expression method: (identifier) @function.method))

((function_call name: (identifier) @function.builtin)
  (#match? @function.builtin "^(assert|collectgarbage|dofile|error|getmetatable|ipairs|load|loadfile|loadstring|next|pairs|pcall|print|rawequal|rawget|rawlen|rawset|require|select|setmetatable|tonumber|tostring|type|unpack|warn|xpcall)$"))

((dot_index_expression field: (identifier) @function.meta)
  (#match? @function.meta "^__[a-z]+$"))
((field name: (identifier) @function.meta)
  (#match? @function.meta "^__[a-z]+$"))

; Literals

(number) @number
(string) @string
(escape_sequence) @property.escape
[(true) (false) (nil)] @number @constant.builtin
(vararg_expression) @variable.builtin

; Keywords

["and" "do" "else" "elseif" "end" "for" "function" "goto" "if" "in" "local" "not" "or" "repeat" "return" "then"
 "until" "while" (break_statement)] @keyword

; Operators and punctuation

["#" "%" "&" "*" "+" "-" ".." "/" "//" "<" "<<" "<=" "=" "==" ">" ">=" ">>" "^" "|" "~" "~="] @operator

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," "." ":" "::" ";"] @punctuation.delimiter

; Comments

[(comment) (hash_bang_line)] @comment

((comment) @comment.documentation
  (#match? @comment.documentation "^---[^-]"))
