; Names

((identifier) @property.type
  (#match? @property.type "^[A-Z].*[a-z]"))

((identifier) @number @constant
  (#match? @constant "^[A-Z][A-Z0-9_]+$"))

((identifier) @variable.builtin
  (#match? @variable.builtin "^(JSON|arguments|console|document|exports|globalThis|module|process|require|window)$"))

[(property_identifier) (private_property_identifier) (shorthand_property_identifier)
 (shorthand_property_identifier_pattern)] @property

(statement_identifier) @property.label

; Functions

(function_declaration name: (identifier) @function)
(function_expression name: (identifier) @function)
(generator_function_declaration name: (identifier) @function)
(generator_function name: (identifier) @function)

(variable_declarator
  name: (identifier) @function
  value: [(arrow_function) (function_expression) (generator_function)])

(assignment_expression
  left: (identifier) @function
  right: [(arrow_function) (function_expression)])

(method_definition
  name: [(property_identifier) (private_property_identifier)] @function.method)

(pair
  key: (property_identifier) @function.method
  value: [(arrow_function) (function_expression) (generator_function)])

(assignment_expression
  left: (member_expression property: (property_identifier) @function.method)
  right: [(arrow_function) (function_expression)])

(call_expression function: (identifier) @function)

(call_expression
  function: (member_expression
    property: [(property_identifier) (private_property_identifier)] @function.method))

((call_expression function: (identifier) @variable.builtin)
  (#eq? @variable.builtin "require"))

; Literals

(number) @number
(string) @string
(template_string "`" @string)
(template_string (string_fragment) @string)
(template_substitution ["${" "}"] @punctuation.special)
(escape_sequence) @property.escape
(regex) @string.regex
(regex_flags) @keyword.flags

[(true) (false) (null) (undefined)] @number @constant.builtin
[(this) (super)] @variable.builtin
(meta_property) @variable.builtin

; Keywords

["as" "async" "await" "break" "case" "catch" "class" "const" "continue" "debugger" "default" "delete" "do"
 "else" "export" "extends" "finally" "for" "from" "function" "get" "if" "import" "in" "instanceof" "let" "new"
 "of" "return" "set" "static" "switch" "throw" "try" "typeof" "var" "void" "while" "with" "yield"] @keyword

(import) @keyword
(hash_bang_line) @comment

(decorator "@" @property.annotation)
(decorator (identifier) @property.annotation.name)
(decorator (call_expression function: (identifier) @property.annotation.name))

; Operators and punctuation

["!" "!=" "!==" "%" "%=" "&" "&&" "&&=" "&=" "*" "**" "**=" "*=" "+" "++" "+=" "-" "--" "-=" "..." "/" "/="
 "<" "<<" "<<=" "<=" "=" "==" "===" "=>" ">" ">=" ">>" ">>=" ">>>" ">>>=" "??" "??=" "^" "^=" "|" "|=" "||"
 "||=" "~" (optional_chain)] @operator

(ternary_expression ["?" ":"] @operator)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," ";" "." ":"] @punctuation.delimiter

; Comments

(comment) @comment

((comment) @comment.documentation
  (#match? @comment.documentation "^/\\*\\*[^*/]"))
