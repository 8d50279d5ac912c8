; Names

((identifier) @property.type
  (#match? @property.type "^_*[A-Z]([A-Z0-9]*[a-z]|$)"))

((identifier) @number @constant
  (#match? @constant "^_*[A-Z][A-Z0-9_]+$"))

((identifier) @number.magic @constant.builtin
  (#match? @constant.builtin "^__[a-z0-9_]+__$"))

((identifier) @variable.builtin.self
  (#match? @variable.builtin.self "^(self|cls)$"))

(attribute attribute: (identifier) @property)
(keyword_argument name: (identifier) @property.argument)
(keyword_pattern (identifier) @property.argument)

; Parameters

(parameters (identifier) @variable.parameter)
(lambda_parameters (identifier) @variable.parameter)
(default_parameter name: (identifier) @variable.parameter)
(typed_parameter (identifier) @variable.parameter)
(typed_default_parameter name: (identifier) @variable.parameter)
(parameters [(list_splat_pattern (identifier) @variable.parameter)
             (dictionary_splat_pattern (identifier) @variable.parameter)])
(typed_parameter [(list_splat_pattern (identifier) @variable.parameter)
                  (dictionary_splat_pattern (identifier) @variable.parameter)])

; Types

(class_definition name: (identifier) @property.type.definition)
(type (identifier) @property.type.annotation)
(type (attribute attribute: (identifier) @property.type.annotation))
(type (binary_operator (identifier) @property.type.annotation))
(generic_type (identifier) @property.type.annotation)
(splat_type (identifier) @property.type.annotation)

; Functions

(function_definition name: (identifier) @function.definition.name)
(call function: (identifier) @function)
(call function: (attribute attribute: (identifier) @function.method))

((call function: (identifier) @function.builtin)
  (#match? @function.builtin "^(abs|a?iter|all|any|anext|bin|bool|breakpoint|bytearray|bytes|callable|chr|classmethod|compile|complex|delattr|dict|dir|divmod|enumerate|eval|exec|filter|float|format|frozenset|getattr|globals|hasattr|hash|help|hex|id|input|int|isinstance|issubclass|len|list|locals|map|max|memoryview|min|next|object|oct|open|ord|pow|print|property|range|repr|reversed|round|set|setattr|slice|sorted|staticmethod|str|sum|super|tuple|type|vars|zip)$"))

(decorator "@" @property.annotation)
(decorator (identifier) @property.annotation.name)
(decorator (call function: (identifier) @property.annotation.name))
(decorator (attribute attribute: (identifier) @property.annotation.name))
(decorator (call function: (attribute attribute: (identifier) @property.annotation.name)))

; Literals

[(integer) (float)] @number
[(true) (false) (none) (ellipsis)] @number @constant.builtin

[(string_start) (string_content) (string_end)] @string
[(escape_sequence) (escape_interpolation)] @property.escape
(interpolation ["{" "}"] @punctuation.special)
(type_conversion) @keyword.format
(format_specifier) @property.format

; Documentation

(module . (comment)* .
  (expression_statement
    (string [(string_start) (string_content) (string_end)] @comment.documentation)))
(class_definition
  body: (block .
    (expression_statement
      (string [(string_start) (string_content) (string_end)] @comment.documentation))))
(function_definition
  body: (block .
    (expression_statement
      (string [(string_start) (string_content) (string_end)] @comment.documentation))))

; Keywords

["and" "as" "assert" "async" "await" "break" "case" "class" "continue" "def" "del" "elif" "else" "except" "exec"
 "finally" "for" "from" "global" "if" "import" "in" "is" "is not" "lambda" "match" "nonlocal" "not" "not in" "or"
 "pass" "print" "raise" "return" "try" "type" "while" "with" "yield"] @keyword

(future_import_statement "__future__" @number @constant.builtin)

; Operators and punctuation

["!=" "%" "%=" "&" "&=" "*" "**" "**=" "*=" "+" "+=" "-" "-=" "->" "/" "//" "//=" "/=" ":=" "<" "<<" "<<=" "<="
 "<>" "=" "==" ">" ">=" ">>" ">>=" "@" "@=" "^" "^=" "|" "|=" "~"] @operator

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," "." ":" ";"] @punctuation.delimiter
(line_continuation) @operator

; Comments

(comment) @comment
