; What C++ has beyond C.

(auto) @keyword.type
(this) @variable.builtin
(raw_string_literal) @string
(literal_suffix) @keyword.type
(concept_definition name: (identifier) @property.type)

; Functions

(function_declarator declarator: (field_identifier) @function.method)
(function_declarator declarator: (qualified_identifier name: (identifier) @function))
(function_declarator
  declarator: (qualified_identifier name: (qualified_identifier name: (identifier) @function)))
(function_declarator declarator: (qualified_identifier name: (destructor_name) @function))
(destructor_name) @function.method
(operator_name) @function.method

(call_expression function: (qualified_identifier name: (identifier) @function))
(call_expression
  function: (qualified_identifier name: (qualified_identifier name: (identifier) @function)))
(call_expression
  function: (qualified_identifier
    name: (qualified_identifier name: (qualified_identifier name: (identifier) @function))))
(template_function name: (identifier) @function)
(template_method name: (field_identifier) @function.method)

((template_function name: (identifier) @keyword)
  (#match? @keyword "^(const|dynamic|reinterpret|static)_cast$"))

((namespace_identifier) @property.type
  (#match? @property.type "^[A-Z].*[a-z]"))

; Attributes

(attribute name: (identifier) @property.annotation)
(attribute prefix: (identifier) @property.annotation)

; Keywords

["catch" "class" "co_await" "co_return" "co_yield" "concept" "consteval" "constinit" "decltype" "delete"
 "explicit" "final" "friend" "mutable" "namespace" "new" "noexcept" "operator" "override" "private" "protected"
 "public" "requires" "static_assert" "template" "throw" "try" "typename" "using" "virtual"] @keyword

["and" "bitand" "bitor" "compl" "not" "not_eq" "or" "xor" "and_eq" "or_eq" "xor_eq"] @keyword.operator

(default_method_clause "default" @keyword)

; Operators and punctuation

["<=>" ".*"] @operator
"::" @punctuation.delimiter
(template_argument_list ["<" ">"] @punctuation.bracket.template)
(template_parameter_list ["<" ">"] @punctuation.bracket.template)
(lambda_default_capture) @operator
