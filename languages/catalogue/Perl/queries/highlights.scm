; Names

[(scalar) (array) (hash) (function_variable) (glob) (array_length)] @property.variable
(dereference ["$" "@" "%" "&" "*" "$#"] @property.variable)
(array_length "$#" @property.variable)
(sigil) @property.variable
(placeholder) @variable.parameter

((scalar) @variable.builtin
  (#match? @variable.builtin "^\\$(self|class|this|_|[0-9]+|\\{?\\^.*|[^\\w\\s{:].*|ENV|ARGV|INC|a|b)$"))
((array) @variable.builtin
  (#match? @variable.builtin "^@(_|ARGV|INC|EXPORT|EXPORT_OK|ISA|[-+])$"))
((hash) @variable.builtin
  (#match? @variable.builtin "^%(ENV|INC|SIG|EXPORT_TAGS|[-+!])$"))

(key) @property
(label (name) @property.label)
(jump_expression (bareword) @property.label.target)
(handle) @property.type.handle
(package_name) @property.type
(format_name) @property.type

((bareword) @property.type
  (#match? @property.type "::|^[A-Z][A-Za-z0-9_]*[a-z]"))
((bareword) @number.value @constant.value
  (#match? @constant.value "^[A-Z][A-Z0-9_]+$"))
((bareword) @property.type.handle
  (#match? @property.type.handle "^(STDIN|STDOUT|STDERR|ARGV|DATA)$"))
(unary_expression operator: "-" (bareword) @string)
(method_call invocant: (bareword) @property.type.class)
(object_creation class: (bareword) @property.type.class)

; Pragmas are written small.

((use_statement module: (package_name) @keyword.directive.pragma)
  (#match? @keyword.directive.pragma "^[a-z]"))

; Functions

(function) @function
(function_name) @function.definition
(method) @function.method
((function) @number.magic @constant.builtin
  (#match? @constant.builtin "^(__(FILE|LINE|PACKAGE|SUB|CLASS)__|undef|wantarray)$"))
((function) @keyword.control
  (#match? @keyword.control "^(die|exit|require)$"))

(attributes ":" @property.annotation)
[(attribute_name) (attribute_value)] @property.annotation
(prototype) @property.annotation

; Literals

[(number) (version)] @number
[(raw_string) (string) (command) (word_list) (heredoc) (heredoc_marker)] @string
[(match) (pattern) (substitution) (transliteration)] @string.regex
[(read_line) (file_pattern)] @string.path
[(regex) (replacement) (characters)] @string.regex.inner
(modifiers) @keyword.flags
(escape) @property.escape

; Keywords

["AUTOLOAD" "BEGIN" "CHECK" "DESTROY" "END" "INIT" "UNITCHECK" "and" "catch" "cmp" "continue" "default" "defer" "do"
 "else" "elsif" "eq" "eval" "finally" "for" "foreach" "format" "ge" "given" "gt" "if" "isa" "le" "local" "lt" "my"
 "ne" "no" "not" "or" "our" "package" "return" "state" "sub" "try" "unless" "until" "use" "when" "while" "xor"]
@keyword

[(jump) (data_marker)] @keyword
(binary_expression operator: "x" @keyword.operator)

; Operators and punctuation

["!" "!=" "!~" "%" "%=" "&" "&&" "&&=" "&." "&.=" "&=" "*" "**" "**=" "*=" "+" "++" "+=" "-" "--" "-=" "->" "." ".."
 "..." ".=" "/" "//" "//=" "/=" "<" "<<" "<<=" "<=" "<=>" "=" "==" "=>" "=~" ">" ">=" ">>" ">>=" "?" "\\" "^" "^."
 "^.=" "^=" "x=" "|" "|." "|.=" "|=" "||" "||=" "~" "~." "~~" (file_test_operator)] @operator

(conditional ":" @operator)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," ":" ";"] @punctuation.delimiter

; Text that is no program

[(pod) (data_text)] @comment.documentation
(format_body) @string.format

(comment) @comment
