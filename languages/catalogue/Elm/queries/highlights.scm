; Names

(upper_case_identifier) @property.type
(field name: (lower_case_identifier) @property)
(field_type name: (lower_case_identifier) @property)
(field_access_expr (lower_case_identifier) @property)
(field_accessor_function_expr [(dot) (lower_case_identifier)] @property)
(record_pattern (lower_pattern (lower_case_identifier) @property))
(type_variable (lower_case_identifier) @property.type.variable)
(lower_type_name (lower_case_identifier) @property.type.variable)
(union_variant name: (upper_case_identifier) @property.type.variant)

; Functions

(type_annotation name: (lower_case_identifier) @function.definition)
(port_annotation name: (lower_case_identifier) @function.definition)
(function_declaration_left . (lower_case_identifier) @function.definition)
(exposed_value (lower_case_identifier) @function)
(function_call_expr target: (value_expr name: (value_qid (lower_case_identifier) @function)))
(function_declaration_left pattern: (lower_pattern (lower_case_identifier) @variable.parameter))
(anonymous_function_expr param: (pattern child: (lower_pattern (lower_case_identifier) @variable.parameter)))

; A pipe ends in a function, even if that has no other argument.

(bin_op_expr
  part: (operator (operator_identifier "|>")) .
  part: (value_expr name: (value_qid (lower_case_identifier) @function)))

; Literals

(number_literal) @number
[(open_quote) (close_quote) (open_char) (close_char) (regular_string_part)] @string
(string_escape) @property.escape
(unit_expr) @number @constant.builtin

((value_expr name: (upper_case_qid (upper_case_identifier) @number.boolean @constant.builtin.boolean))
  (#match? @constant.builtin.boolean "^(True|False)$"))
((union_pattern constructor: (upper_case_qid (upper_case_identifier) @number.boolean @constant.builtin.boolean))
  (#match? @constant.builtin.boolean "^(True|False)$"))

; Keywords

["else" "if" "in" "let" "then"] @keyword
[(alias) (as) (case) (effect) (exposing) (import) (infix) (module) (of) (port) (type) (where)] @keyword

["[glsl|" "|]"] @keyword.directive
(glsl_content) @string.glsl

; Operators and punctuation

[(operator_identifier) (arrow) (eq) (backslash) (double_dot)] @operator
(cons_pattern "::" @operator)
["|"] @operator
[(underscore) (anything_pattern)] @variable.builtin

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," (colon) (dot)] @punctuation.delimiter

; Comments

[(line_comment) (block_comment)] @comment

((block_comment) @comment.documentation
  (#match? @comment.documentation "^\\{-\\|"))
