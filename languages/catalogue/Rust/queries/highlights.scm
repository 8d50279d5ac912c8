; Names

(type_identifier) @property.type
(primitive_type) @keyword.type
[(field_identifier) (shorthand_field_identifier)] @property
(shorthand_field_initializer (identifier) @property)
(lifetime ["'" (identifier)] @property.label)
(label ["'" (identifier)] @property.label)

((identifier) @property.type
  (#match? @property.type "^[A-Z]([A-Z0-9]*[a-z]|$)"))

((identifier) @number @constant
  (#match? @constant "^[A-Z][A-Z0-9_]+$"))

[(self) (super) (crate)] @variable.builtin
(metavariable) @variable.builtin
(fragment_specifier) @keyword.type

(enum_variant name: (identifier) @property.type.variant)
(const_item name: (identifier) @number @constant)
(const_parameter name: (identifier) @number @constant)

; Functions

(function_item name: (identifier) @function.definition)
(function_signature_item name: (identifier) @function.definition)
(call_expression function: (identifier) @function)
(call_expression function: (scoped_identifier name: (identifier) @function))
(call_expression function: (field_expression field: (field_identifier) @function.method))
(generic_function function: (identifier) @function)
(generic_function function: (scoped_identifier name: (identifier) @function))
(generic_function function: (field_expression field: (field_identifier) @function.method))

(macro_invocation macro: (identifier) @function.macro)
(macro_invocation macro: (scoped_identifier name: (identifier) @function.macro))
(macro_invocation "!" @function.macro)
(macro_definition ["macro_rules!" name: (identifier)] @function.macro)

; Parameters

(parameter pattern: (identifier) @variable.parameter)
(closure_parameters (identifier) @variable.parameter)

; Attributes

(attribute_item ["#" "[" "]"] @property.annotation)
(inner_attribute_item ["#" "!" "[" "]"] @property.annotation)
(attribute (identifier) @property.annotation)
(attribute (scoped_identifier (identifier) @property.annotation))
(attribute arguments: (token_tree (identifier) @property.annotation))

; Literals

[(integer_literal) (float_literal)] @number
[(string_literal) (raw_string_literal) (char_literal)] @string
(escape_sequence) @property.escape
(boolean_literal) @number @constant.builtin

; Keywords

["as" "async" "await" "break" "const" "continue" "default" "dyn" "else" "enum" "extern" "fn" "for" "gen" "if"
 "impl" "in" "let" "loop" "match" "mod" "move" "pub" "raw" "ref" "return" "static" "struct" "trait" "try" "type"
 "union" "unsafe" "use" "where" "while" "yield" (mutable_specifier)] @keyword

; Operators and punctuation

["!=" "%" "%=" "&" "&&" "&=" "*" "*=" "+" "+=" "-" "-=" "->" ".." "..." "..=" "/" "/=" "<<" "<<=" "<=" "=" "=="
 "=>" ">=" ">>" ">>=" "?" "@" "^" "^=" "|" "|=" "||"] @operator

(unary_expression "!" @operator)
(binary_expression ["<" ">"] @operator)
(token_tree ["<" ">" "!" "#"] @operator)
(never_type) @keyword.type
(token_repetition ["$" "*" "+"] @operator)
(token_repetition_pattern ["$" "*" "+" "?"] @operator)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
(type_arguments ["<" ">"] @punctuation.bracket)
(type_parameters ["<" ">"] @punctuation.bracket)
(bracketed_type ["<" ">"] @punctuation.bracket)
["," "." ":" "::" ";"] @punctuation.delimiter

; Comments

[(line_comment) (block_comment)] @comment
(line_comment (doc_comment)) @comment.documentation
(block_comment (doc_comment)) @comment.documentation
[(outer_doc_comment_marker) (inner_doc_comment_marker)] @comment.documentation
(shebang) @comment
