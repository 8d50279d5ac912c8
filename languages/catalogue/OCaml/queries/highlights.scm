; Names

[(module_name) (module_type_name)] @property.type
[(type_constructor) (class_name) (class_type_name)] @property.type
(type_variable) @property.type.variable
[(constructor_name) (tag)] @property.type.variant
[(field_name) (instance_variable_name)] @property
(label_name) @property.argument

((type_constructor) @keyword.type.builtin
  (#match? @keyword.type.builtin "^(array|bool|bytes|char|exn|float|format|in_channel|int|int32|int64|lazy_t|list|nativeint|option|out_channel|ref|result|string|unit)$"))

; Functions

(let_binding pattern: (value_name) @function.definition (parameter))
(let_binding pattern: (value_name) @function.definition body: [(fun_expression) (function_expression)])
(value_specification (value_name) @function.definition)
(external (value_name) @function.definition)
(method_name) @function.method
(application_expression function: (value_path (value_name) @function))
((value_path (value_name) @function.builtin)
  (#match? @function.builtin "^(failwith|ignore|incr|decr|invalid_arg|not|fst|snd|raise|raise_notrace|ref|print_(char|endline|float|int|newline|string)|prerr_endline)$"))

; A name after |> or @@, and one before @@, is applied as well.

(infix_expression
  operator: (rel_operator) @operator
  right: (value_path (value_name) @function)
  (#eq? @operator "|>"))
(infix_expression
  left: (value_path (value_name) @function)
  operator: (concat_operator) @operator
  (#eq? @operator "@@"))

(parameter pattern: (value_pattern) @variable.parameter)
(parameter pattern: (typed_pattern pattern: (value_pattern) @variable.parameter))

; Literals

[(number) (signed_number)] @number
[(boolean) (unit)] @number @constant.builtin
(unit ["(" ")" "begin" "end"] @constant.builtin.unit)
[(string) (character) (quoted_string)] @string
(quoted_string ["{" "}"] @string.quote.bracket)
[(escape_sequence) (conversion_specification) (pretty_printing_indication)] @property.escape

; Attributes and extensions

[(attribute_id) "%"] @property.annotation
["[%" "[%%" "[@" "[@@" "[@@@"] @property.annotation
(attribute "]" @property.annotation)
(item_attribute "]" @property.annotation)
(floating_attribute "]" @property.annotation)
(extension "]" @property.annotation)
(item_extension "]" @property.annotation)
["{%" "{%%"] @property.annotation
[(quoted_extension) (quoted_item_extension)] @string
[(directive) (line_number_directive)] @keyword.directive

; Keywords

["and" "as" "assert" "begin" "class" "constraint" "do" "done" "downto" "effect" "else" "end" "exception" "external"
 "for" "fun" "function" "functor" "if" "in" "include" "inherit" "initializer" "lazy" "let" "match" "method" "module"
 "mutable" "new" "nonrec" "object" "of" "open" "private" "rec" "sig" "struct" "then" "to" "try" "type" "val"
 "virtual" "when" "while" "with"] @keyword

[(let_operator) (let_and_operator) (match_operator)] @keyword

; Operators and punctuation

[(prefix_operator) (sign_operator) (pow_operator) (mult_operator) (add_operator) (concat_operator) (rel_operator)
 (and_operator) (or_operator) (assign_operator) (hash_operator) (indexing_operator)] @operator

["!" "#" "*" "+" "+=" "-" "->" ".." ":=" ":>" "<-" "=" ">" "?" "|" "~"] @operator

["(" ")" "[" "]" "[|" "|]" "{" "}" "{<" ">}" "[<" "[>"] @punctuation.bracket
["," "." ":" "::" ";" ";;"] @punctuation.delimiter

; Comments

[(comment) (shebang)] @comment

((comment) @comment.documentation
  (#match? @comment.documentation "^\\(\\*\\*[^*)]"))
