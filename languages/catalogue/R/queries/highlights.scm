; Names

(parameter name: (identifier) @variable.parameter)
(argument name: [(identifier) (string)] @property.argument)
(extract_operator rhs: (identifier) @property)
(namespace_operator lhs: (identifier) @property.type)
[(dots) (dot_dot_i)] @variable.builtin

((identifier) @number @constant.builtin
  (#match? @constant.builtin "^(LETTERS|letters|month\\.abb|month\\.name|pi|T|F)$"))

; Functions

(call function: (identifier) @function)
(call function: (namespace_operator rhs: (identifier) @function.call))
(call function: (extract_operator rhs: (identifier) @function.method))

(binary_operator
  lhs: (identifier) @function.definition
  operator: ["<-" "<<-" "="]
  rhs: (function_definition))
(binary_operator
  lhs: (string) @function.definition
  operator: ["<-" "<<-" "="]
  rhs: (function_definition))
(argument
  name: (identifier) @function.definition
  value: (function_definition))

((call function: (identifier) @keyword.import)
  (#match? @keyword.import "^(library|require|requireNamespace|source|attachNamespace)$"))
((call function: (identifier) @keyword.control)
  (#match? @keyword.control "^(return|stop|tryCatch|on\\.exit|UseMethod|switch)$"))

; Literals

[(integer) (float) (complex)] @number
(string) @string
(escape_sequence) @property.escape
[(true) (false) (null) (na) (nan) (inf)] @number @constant.builtin

; Keywords

["else" "for" "function" "if" "in" "repeat" "while" (break) (next)] @keyword
(function_definition name: "\\" @keyword)

; Operators and punctuation

["!" "!=" "$" "&" "&&" "*" "**" "+" "-" "->" "->>" "/" ":" ":=" "<" "<-" "<<-" "<=" "=" "==" ">" ">=" "?" "@" "^"
 "|" "|>" "||" "~" "special"] @operator

["::" ":::"] @punctuation.delimiter
["(" ")" "[" "[[" "]" "]]" "{" "}"] @punctuation.bracket
(comma) @punctuation.delimiter

; Comments

(comment) @comment

((comment) @comment.documentation
  (#match? @comment.documentation "^#'"))
