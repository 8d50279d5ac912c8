; Names

(type_identifier) @property.type
(navigation_suffix suffix: (simple_identifier) @property)
(prefix_expression operation: "." target: (simple_identifier) @property)
(statement_label) @property.label
(control_transfer_statement ["break" "continue"] result: (simple_identifier) @property.label)
(value_argument_label (simple_identifier) @property.argument)
[(self_expression) (super_expression)] @variable.builtin

((simple_identifier) @property.type
  (#match? @property.type "^[A-Z]"))

((type_identifier) @keyword.type.builtin
  (#match? @keyword.type.builtin "^(Any|AnyObject|Self)$"))
((simple_identifier) @variable.builtin.argument
  (#match? @variable.builtin.argument "^\\$[0-9]+$"))

(protocol_property_declaration name: (pattern (simple_identifier) @property.definition))
(class_body (property_declaration name: (pattern (simple_identifier) @property.definition)))
(enum_class_body (property_declaration name: (pattern (simple_identifier) @property.definition)))
(enum_entry name: (simple_identifier) @property.variant)
(switch_pattern (pattern (simple_identifier) @property.variant))
(precedence_group_declaration (simple_identifier) @property.type)
(precedence_group_attribute . (simple_identifier) @property)
(operator_declaration (simple_identifier) @property.type)
(tuple_expression name: (simple_identifier) @property.argument)
(enum_type_parameters (simple_identifier) @property.argument)
(tuple_type_item name: (simple_identifier) @property.argument)

; Functions

(function_declaration "func" . (simple_identifier) @function.definition)
(protocol_function_declaration "func" . (simple_identifier) @function.definition)
(init_declaration "init" @keyword.constructor)
(macro_declaration (simple_identifier) @function.macro)
(macro_invocation ["#" (simple_identifier)] @function.macro)
(call_expression . (simple_identifier) @function)
(call_expression . (navigation_expression suffix: (navigation_suffix suffix: (simple_identifier) @function.method)))
(call_expression . (prefix_expression operation: "." target: (simple_identifier) @function.method))
((navigation_suffix suffix: (simple_identifier) @keyword.constructor.call)
  (#match? @keyword.constructor.call "^(init|self)$"))

; Parameters

(parameter external_name: (simple_identifier) @property.argument)
(parameter name: (simple_identifier) @variable.parameter)
(lambda_parameter name: (simple_identifier) @variable.parameter)
(capture_list_item name: (simple_identifier) @variable.parameter)
(type_parameter . (type_identifier) @property.type)

; Attributes

(attribute "@" @property.annotation)
(attribute (user_type (type_identifier) @property.annotation.name))

; Literals

[(integer_literal) (hex_literal) (oct_literal) (bin_literal) (real_literal)] @number
(boolean_literal) @number @constant.builtin
["nil" (special_literal)] @number @constant.builtin

["\"" "\"\"\"" (line_str_text) (multi_line_str_text) (raw_str_part) (raw_str_end_part)
 (raw_str_continuing_indicator)] @string
(str_escaped_char) @property.escape
(line_string_literal ["\\(" ")"] @punctuation.special)
(multi_line_string_literal ["\\(" ")"] @punctuation.special)
(raw_str_interpolation [(raw_str_interpolation_start) ")"] @punctuation.special)
(regex_literal) @string.regex

; Keywords

["_modify" "actor" "any" "as" "as!" "as?" "associatedtype" "async" "available" "await" "borrowing" "break" "case"
 "class" "consuming" "continue" "convenience" "deinit" "didSet" "distributed" "do" "each" "enum" "extension"
 "fallthrough" "fileprivate" "final" "for" "func" "get" "guard" "if" "import" "in" "indirect" "infix" "init"
 "inout" "internal" "is" "lazy" "let" "macro" "mutating" "nonisolated" "nonmutating" "open" "operator" "optional"
 "override" "package" "postfix" "precedencegroup" "prefix" "private" "protocol" "public" "repeat" "required"
 "return" "set" "some" "static" "struct" "subscript" "switch" "try" "try!" "try?" "typealias" "unavailable"
 "unowned" "unowned(safe)" "unowned(unsafe)" "var" "weak" "while" "willSet" "yield"] @keyword

[(as_operator) (catch_keyword) (default_keyword) (else) (throw_keyword) (throws) (where_keyword) (try_operator)
 (visibility_modifier) (member_modifier) (function_modifier) (property_modifier) (parameter_modifier)
 (inheritance_modifier) (ownership_modifier) (mutation_modifier) (property_behavior_modifier)] @keyword

((type_identifier) @keyword.metatype
  (#match? @keyword.metatype "^(Type|Protocol)$"))

((call_expression . (simple_identifier) @keyword.defer)
  (#eq? @keyword.defer "defer"))
((simple_identifier) @keyword.fallthrough
  (#eq? @keyword.fallthrough "fallthrough"))

[(directive) (diagnostic)] @keyword.directive
(directive (simple_identifier) @property.argument)
(availability_condition ["#" "available" "unavailable"] @keyword.directive)
(availability_condition (identifier) @property.argument)
(selector_expression ["#" "selector"] @keyword.directive)
(key_path_string_expression ["#" "keyPath"] @keyword.directive)
(external_macro_definition ["#" "externalMacro"] @function.macro)

; Operators and punctuation

["!" "!=" "!==" "%" "%=" "&" "&&" "*" "*=" "+" "++" "+=" "-" "--" "-=" "->" "..." "..<" "/" "/=" "<" "<<" "<=" "="
 "==" "===" ">" ">=" ">>" "?" "??" "^" "|" "||" "~" (bang) (custom_operator) (fully_open_range)] @operator

(ternary_expression ":" @operator)
(key_path_expression "\\" @operator)

["(" ")" "[" "]" "{" "}" "^{"] @punctuation.bracket
(type_arguments ["<" ">"] @punctuation.bracket)
(type_parameters ["<" ">"] @punctuation.bracket)
["," "." ":" ";"] @punctuation.delimiter

(wildcard_pattern) @variable.builtin

; Comments

[(comment) (multiline_comment) (shebang_line)] @comment
(shebang_line ["#" "!"] @comment.shebang)

((comment) @comment.documentation
  (#match? @comment.documentation "^///([^/]|$)"))
((multiline_comment) @comment.documentation
  (#match? @comment.documentation "^/\\*\\*[^*/]"))
