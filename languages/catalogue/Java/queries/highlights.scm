; Names

(type_identifier) @property.type
[(integral_type) (floating_point_type) (boolean_type) (void_type)] @keyword.type

(class_declaration name: (identifier) @property.type)
(interface_declaration name: (identifier) @property.type)
(enum_declaration name: (identifier) @property.type)
(record_declaration name: (identifier) @property.type)
(annotation_type_declaration name: (identifier) @property.type)
(record_pattern (identifier) @property.type)
(method_reference . (identifier) @property.type (#match? @property.type "^[A-Z].*[a-z]"))

((method_invocation object: (identifier) @property.type)
  (#match? @property.type "^[A-Z].*[a-z]"))
((field_access object: (identifier) @property.type)
  (#match? @property.type "^[A-Z].*[a-z]"))
((scoped_identifier name: (identifier) @property.type)
  (#match? @property.type "^[A-Z].*[a-z]"))

(field_access field: (identifier) @property)
(field_declaration declarator: (variable_declarator name: (identifier) @property))
(element_value_pair key: (identifier) @property)
(annotation_type_element_declaration name: (identifier) @property)

((identifier) @number @constant
  (#match? @constant "^[A-Z][A-Z0-9_]+$"))
(enum_constant name: (identifier) @number @constant)

(labeled_statement (identifier) @property.label)
(break_statement (identifier) @property.label)
(continue_statement (identifier) @property.label)

; Functions

(method_declaration name: (identifier) @function.method)
(constructor_declaration name: (identifier) @function.method)
(compact_constructor_declaration name: (identifier) @function.method)
(method_invocation name: (identifier) @function.method)
(method_reference "::" (identifier) @function.method)

; Annotations

(marker_annotation "@" @property.annotation name: (_) @property.annotation)
(annotation "@" @property.annotation name: (_) @property.annotation)

; Literals

[(decimal_integer_literal) (hex_integer_literal) (octal_integer_literal) (binary_integer_literal)
 (decimal_floating_point_literal) (hex_floating_point_literal)] @number

(string_literal ["\"" "\"\"\""] @string)
[(string_fragment) (multiline_string_fragment) (character_literal)] @string
(escape_sequence) @property.escape
(string_interpolation ["\\{" "}"] @punctuation.special)

[(true) (false) (null_literal)] @number @constant.builtin
[(this) (super)] @variable.builtin

; Keywords

["abstract" "assert" "break" "case" "catch" "class" "continue" "default" "do" "else" "enum" "exports" "extends"
 "final" "finally" "for" "if" "implements" "import" "instanceof" "interface" "module" "native" "new" "non-sealed"
 "open" "opens" "package" "permits" "private" "protected" "provides" "public" "record" "requires" "return" "sealed"
 "static" "strictfp" "switch" "synchronized" "throw" "throws" "to" "transient" "transitive" "try" "uses" "volatile"
 "when" "while" "with" "yield" "@interface"] @keyword

; Operators and punctuation

["!" "!=" "%" "%=" "&" "&&" "&=" "*" "*=" "+" "++" "+=" "-" "--" "-=" "->" "..." "/" "/=" "::" "<" "<<" "<<="
 "<=" "=" "==" ">" ">=" ">>" ">>=" ">>>" ">>>=" "^" "^=" "|" "|=" "||" "~" (asterisk)] @operator
(ternary_expression ["?" ":"] @operator)
(wildcard "?" @operator)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
(type_arguments ["<" ">"] @punctuation.bracket.type)
(type_parameters ["<" ">"] @punctuation.bracket.type)
["," ";" "." ":"] @punctuation.delimiter

; Comments

[(line_comment) (block_comment)] @comment
((block_comment) @comment.documentation
  (#match? @comment.documentation "^/\\*\\*[^*/]"))
