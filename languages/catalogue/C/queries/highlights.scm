; Of two captures of one node the later wins, or the one whose name has more parts; of two nodes the inner one.

; Names

(type_identifier) @property.type
(primitive_type) @keyword.type
(sized_type_specifier) @keyword.type
(field_identifier) @property
(statement_identifier) @property.label

((identifier) @number @constant
  (#match? @constant "^[A-Z][A-Z0-9_]+$"))

(enumerator name: (identifier) @number @constant)

(function_declarator declarator: (identifier) @function)
(function_declarator declarator: (parenthesized_declarator (pointer_declarator) @function))
(call_expression function: (identifier) @function.call)
(call_expression function: (field_expression field: (field_identifier) @function.method))

; Literals

(number_literal) @number
(string_literal) @string
(char_literal) @string
(system_lib_string) @string
(escape_sequence) @property.escape

[(true) (false) (null)] @number @constant.builtin

; Preprocessor

["#define" "#elif" "#elifdef" "#elifndef" "#else" "#endif" "#if" "#ifdef" "#ifndef" "#include"
 (preproc_directive) "defined"] @keyword.directive

(preproc_def name: (identifier) @number @constant)
(preproc_function_def name: (identifier) @function.macro)

; Keywords

["break" "case" "const" "continue" "default" "do" "else" "enum" "extern" "for" "goto" "if" "inline"
 "register" "restrict" "return" "sizeof" "static" "struct" "switch" "typedef" "union" "volatile" "while"]
@keyword

["_Alignas" "_Alignof" "_Atomic" "_Generic" "_Noreturn" "__attribute__" "__inline__" "__restrict__" "alignas"
 "alignof" "asm" "constexpr" "noreturn" "offsetof" "thread_local"] @keyword

; Operators and punctuation

["!" "!=" "%" "%=" "&" "&&" "&=" "*" "*=" "+" "++" "+=" "-" "--" "-=" "->" "/" "/=" "<" "<<" "<<=" "<=" "="
 "==" ">" ">=" ">>" ">>=" "^" "^=" "|" "|=" "||" "~" "..."] @operator

(conditional_expression ["?" ":"] @operator)

["(" ")" "[" "]" "{" "}" "[[" "]]"] @punctuation.bracket
["," ";" "." ":"] @punctuation.delimiter

; Comments

(comment) @comment

((comment) @comment.documentation
  (#match? @comment.documentation "^/(\\*[*!]|/[/!])"))
