; Names

(alias) @property.type
[(atom) (quoted_atom)] @string.symbol
(keyword) @string.symbol
(quoted_keyword [(quoted_content) "\"" "'"] @string.symbol)
(struct (identifier) @variable.builtin)

((identifier) @variable.builtin
  (#match? @variable.builtin "^__(MODULE|DIR|ENV|CALLER|STACKTRACE)__$"))
((identifier) @comment.unused
  (#match? @comment.unused "^_([a-z0-9]|$)"))
(unary_operator operator: "&" operand: (integer) @variable.builtin)

; Functions

(call target: (identifier) @function)
(call target: (dot right: (identifier) @property))
(call target: (dot left: [(alias) (atom)] right: (identifier) @function.method))
(call target: (dot right: (identifier) @function.method) (arguments))
(binary_operator operator: "|>" right: (identifier) @function)
(unary_operator
  operator: "&"
  operand: (binary_operator left: (identifier) @function operator: "/" right: (integer)))

; Definitions

((call target: (identifier) @keyword.definition)
  (#match? @keyword.definition "^(def|defdelegate|defexception|defguard|defguardp|defimpl|defmacro|defmacrop|defmodule|defn|defnp|defoverridable|defp|defprotocol|defstruct|deftransform)$"))

((call
  target: (identifier) @keyword.definition
  (arguments
    [(identifier) @function.definition
     (call target: (identifier) @function.definition)
     (binary_operator operator: "when" left: (identifier) @function.definition)
     (binary_operator operator: "when" left: (call target: (identifier) @function.definition))]))
  (#match? @keyword.definition "^(def|defdelegate|defguard|defguardp|defmacro|defmacrop|defn|defnp|defp)$"))

((call target: (identifier) @keyword.control)
  (#match? @keyword.control "^(alias|case|cond|for|if|import|quote|raise|receive|require|reraise|super|throw|try|unless|unquote|unquote_splicing|use|with)$"))

; Attributes

(unary_operator operator: "@" @property.annotation)
(unary_operator operator: "@" operand: (identifier) @property.annotation)
(unary_operator operator: "@" operand: (call target: (identifier) @property.annotation.name))
(unary_operator
  operator: "@"
  operand: (call
    target: (identifier) @property.annotation.name
    (arguments (binary_operator left: (call target: (identifier) @function.definition.spec)))))

((unary_operator
  operator: "@"
  operand: (call
    target: (identifier) @property.annotation.name
    (arguments
      (binary_operator
        left: [(identifier) @property.type.definition.name
               (call target: (identifier) @property.type.definition.name)]))))
  (#match? @property.annotation.name "^(opaque|type|typep)$"))

; Literals

[(integer) (float) (char)] @number
[(boolean) (nil)] @number @constant.builtin

(string ["\"" "\"\"\""] @string)
(charlist ["'" "'''"] @string)
(quoted_content) @string
(quoted_atom (quoted_content) @string.symbol)
(escape_sequence) @property.escape
(interpolation ["#{" "}"] @punctuation.special)

(sigil ["~" "\"" "\"\"\"" "'" "'''" "(" ")" "[" "]" "{" "}" "<" ">" "/" "|"] @string.sigil.quote)
(sigil (sigil_name) @keyword.sigil)
(sigil (sigil_modifiers) @keyword.flags)

((sigil
  (sigil_name) @keyword.sigil
  (quoted_content) @string.regex)
  (#match? @keyword.sigil "^[rR]$"))

; Documentation

((unary_operator
  operator: "@"
  operand: (call
    target: (identifier) @property.annotation.name
    (arguments [(string ["\"" "\"\"\"" (quoted_content)] @comment.documentation)
                (sigil [(sigil_name) (quoted_content)] @comment.documentation)])))
  (#match? @property.annotation.name "^(doc|moduledoc|shortdoc|typedoc)$"))

; Keywords

["after" "and" "catch" "do" "else" "end" "fn" "in" "not" "not in" "or" "rescue" "when"] @keyword

; Operators and punctuation

["!" "!=" "!==" "&" "&&" "&&&" "*" "**" "+" "++" "+++" "-" "--" "---" "->" ".." "..." "/" "//" "::" "<" "<-" "<<<"
 "<<~" "<=" "<>" "<|>" "<~" "<~>" "=" "==" "===" "=>" "=~" ">" ">=" ">>>" "\\\\" "^" "^^^" "|" "|>" "||" "|||"
 "~>" "~>>" "~~~"] @operator

(operator_identifier) @operator

["(" ")" "[" "]" "{" "}" "<<" ">>" "%"] @punctuation.bracket
["," "." ";"] @punctuation.delimiter

; Comments

(comment) @comment
