; Names

(constant) @property.type
(instance_variable) @property
[(class_variable) (global_variable)] @property.shared
[(self) (super)] @variable.builtin
(scope_resolution scope: (constant) @property.type.scope)

((identifier) @number.magic @constant.builtin
  (#match? @constant.builtin "^__(FILE|LINE|ENCODING|dir)__$"))

((constant) @number.value @constant.value
  (#match? @constant.value "^[A-Z][A-Z0-9_]+$"))

(hash_key_symbol) @string.symbol
(keyword_pattern key: (_) @string.symbol)
[(simple_symbol) (delimited_symbol)] @string.symbol

; Parameters

(method_parameters (identifier) @variable.parameter)
(lambda_parameters (identifier) @variable.parameter)
(block_parameters (identifier) @variable.parameter)
(block_parameter name: (identifier) @variable.parameter)
(destructured_parameter (identifier) @variable.parameter)
(splat_parameter name: (identifier) @variable.parameter)
(hash_splat_parameter name: (identifier) @variable.parameter)
(optional_parameter name: (identifier) @variable.parameter)
(keyword_parameter name: (identifier) @property.argument)
(keyword_parameter ":" @property.argument)

; Methods

(call method: (identifier) @function)
(call method: (constant) @function.method.conversion)
(method name: [(identifier) (constant) (setter (identifier)) (operator)] @function.definition)
(singleton_method name: [(identifier) (setter (identifier)) (operator)] @function.definition)
(alias [(identifier) (operator)] @function.definition)
(undef (identifier) @function.definition)

((call !receiver method: (identifier) @function.builtin)
  (#match? @function.builtin "^(alias_method|attr_(accessor|reader|writer)|autoload|define_method|extend|format|gets|include|load|loop|p|pp|prepend|print|printf|putc|puts|rand|refine|require|require_relative|sleep|sprintf|using)$"))

((identifier) @keyword.modifier
  (#match? @keyword.modifier "^(module_function|private|private_class_method|private_constant|protected|public)$"))

((call !receiver method: (identifier) @keyword.control
  (#match? @keyword.control "^(abort|at_exit|binding|catch|exit|fail|lambda|proc|raise|throw)$")))

((identifier) @keyword.control
  (#match? @keyword.control "^(block_given\\?|raise|__method__)$"))

; Literals

[(integer) (float) (rational) (complex)] @number
[(true) (false) (nil)] @number @constant.builtin

(string "\"" @string)
(subshell "`" @string)
[(string_content) (heredoc_content) (heredoc_beginning) (heredoc_end) (character)] @string
(string_array ["%w(" ")"] @string)
(symbol_array ["%i(" ")"] @string.symbol)
(bare_symbol (string_content) @string.symbol)
(delimited_symbol (string_content) @string.symbol)
(regex "/" @string.regex)
(regex (string_content) @string.regex)
(escape_sequence) @property.escape
(interpolation ["#{" "}"] @punctuation.special)

; Keywords

["BEGIN" "END" "alias" "and" "begin" "break" "case" "class" "def" "defined?" "do" "else" "elsif" "end" "ensure"
 "for" "if" "in" "module" "next" "not" "or" "redo" "rescue" "retry" "return" "then" "undef" "unless" "until"
 "when" "while" "yield"] @keyword

; Operators and punctuation

["!" "!=" "!~" "%" "%=" "&" "&&" "&&=" "&=" "&." "*" "**" "**=" "*=" "+" "+=" "-" "-=" "->" ".." "..." "/" "/="
 "<" "<<" "<<=" "<=" "<=>" "=" "==" "===" "=>" "=~" ">" ">=" ">>" ">>=" "?" "^" "^=" "|" "|=" "||" "||=" "~"]
@operator

(conditional ":" @operator)
(block_parameters "|" @punctuation.bracket)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," "." ":" "::" ";"] @punctuation.delimiter

; Comments

[(comment) (uninterpreted)] @comment
