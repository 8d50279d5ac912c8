; Names

(type_identifier) @property.type
(field_identifier) @property
(label_name) @property.label

((type_identifier) @keyword.type.builtin
  (#match? @keyword.type.builtin "^(any|bool|byte|comparable|complex(64|128)|error|float(32|64)|u?int(8|16|32|64)?|rune|string|uintptr)$"))

(type_parameter_declaration name: (identifier) @property.type)
(const_spec name: (identifier) @number @constant)
(keyed_element . (literal_element (identifier) @property))

; Functions

(function_declaration name: (identifier) @function.definition)
(method_declaration name: (field_identifier) @function.definition)
(method_elem name: (field_identifier) @function.definition)
(call_expression function: (identifier) @function)
(call_expression function: (selector_expression field: (field_identifier) @function.method))
(call_expression function: (parenthesized_expression (identifier) @function))

((call_expression function: (identifier) @function.builtin)
  (#match? @function.builtin "^(append|cap|clear|close|complex|copy|delete|imag|len|make|max|min|new|panic|print|println|real|recover)$"))

; Parameters

(parameter_declaration name: (identifier) @variable.parameter)
(variadic_parameter_declaration name: (identifier) @variable.parameter)

; Literals

[(int_literal) (float_literal) (imaginary_literal)] @number
[(interpreted_string_literal) (raw_string_literal) (rune_literal)] @string
(escape_sequence) @property.escape
[(true) (false) (nil) (iota)] @number @constant.builtin
(import_spec path: (_) @string.path)
(field_declaration tag: (_) @string.tag)

; Keywords

["break" "case" "chan" "const" "continue" "default" "defer" "else" "fallthrough" "for" "func" "go" "goto" "if"
 "import" "interface" "map" "package" "range" "return" "select" "struct" "switch" "type" "var"] @keyword

; Operators and punctuation

["!" "!=" "%" "%=" "&" "&&" "&=" "&^" "&^=" "*" "*=" "+" "++" "+=" "-" "--" "-=" "..." "/" "/=" ":=" "<" "<-" "<<"
 "<<=" "<=" "=" "==" ">" ">=" ">>" ">>=" "^" "^=" "|" "|=" "||" "~"] @operator

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," "." ":" ";"] @punctuation.delimiter

; Comments

(comment) @comment

; Orders to the tools: //go:build, //go:generate, //nolint

((comment) @keyword.directive
  (#match? @keyword.directive "^//(go:|nolint|export )"))
