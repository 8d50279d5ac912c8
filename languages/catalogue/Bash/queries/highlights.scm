; Names

(variable_name) @property
(special_variable_name) @variable.builtin
(simple_expansion "$" @punctuation.special)
(expansion ["${" "}"] @punctuation.special)

; Commands

(command_name) @function
(function_definition name: (word) @function.definition)

((command_name (word) @function.builtin)
  (#match? @function.builtin "^(\\.|:|alias|bg|bind|builtin|caller|cd|command|compgen|complete|compopt|dirs|disown|echo|enable|eval|exec|false|fc|fg|getopts|hash|help|history|jobs|kill|let|logout|mapfile|popd|printf|pushd|pwd|read|readarray|set|shift|shopt|source|suspend|test|times|trap|true|type|ulimit|umask|unalias|wait)$"))

((command_name (word) @keyword.control)
  (#match? @keyword.control "^(break|continue|exit|return)$"))

((command argument: (word) @property.option)
  (#match? @property.option "^[-+]"))
((declaration_command (word) @property.option)
  (#match? @property.option "^[-+]"))
((unset_command (word) @property.option)
  (#match? @property.option "^[-+]"))

; Literals

((word) @number
  (#match? @number "^[0-9]+([.][0-9]+)?$"))

(number) @number
(file_descriptor) @number

; In arithmetic the grammar takes a hexadecimal number for a name.
((variable_name) @number
  (#match? @number "^0[xX][0-9a-fA-F]+$"))

[(string) (raw_string) (ansi_c_string) (translated_string)] @string
[(heredoc_body) (heredoc_start) (heredoc_end)] @string
(case_item value: (_) @string.pattern)
(extglob_pattern) @string.pattern
(regex) @string.regex
(expansion ["%" "%%" "#" "##" "/" "//" "/#" "/%" "^" "^^" "," ",,"] @operator)
(expansion "/" (word) @string)

; What runs inside a string stands out of it.

(command_substitution ["$(" "`" ")"] @punctuation.special)
(process_substitution ["<(" ">(" ")"] @punctuation.special)
(arithmetic_expansion ["$((" "$[" "))" "]"] @punctuation.special)

; Keywords

["case" "declare" "do" "done" "elif" "else" "esac" "export" "fi" "for" "function" "if" "in" "local" "readonly"
 "select" "then" "typeset" "unset" "unsetenv" "until" "while"] @keyword

; Operators and punctuation

["!" "!=" "%" "%=" "&" "&&" "&=" "&>" "&>>" "*" "**" "**=" "*=" "+" "++" "+=" "-" "--" "-=" ".." "/" "/=" "<" "<&"
 "<<" "<<-" "<<<" "<<=" "<=" "=" "==" "=~" ">" ">&" ">=" ">>" ">>=" ">|" "?" "^" "^=" "|" "|&" "|=" "||" "~"
 (test_operator)] @operator

(expansion [":" ":+" ":-" ":=" ":?"] @operator)
(ternary_expression ":" @operator)

["(" ")" "[" "[[" "]" "]]" "{" "}" "((" "))"] @punctuation.bracket
[";" ";&" ";;" ";;&"] @punctuation.delimiter

; Comments

(comment) @comment
