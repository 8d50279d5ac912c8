; What TypeScript has beyond JavaScript.

(type_identifier) @property.type
(predefined_type) @keyword.type
(this_type) @variable.builtin
(type_parameter name: (type_identifier) @property.type)

; Members

(method_signature name: (property_identifier) @function.method)
(abstract_method_signature name: (property_identifier) @function.method)
(function_signature name: (identifier) @function)
(public_field_definition
  name: [(property_identifier) (private_property_identifier)] @function.method
  value: (arrow_function))
(enum_body name: (property_identifier) @number.member @constant.member)
(enum_assignment name: (property_identifier) @number.member @constant.member)
(nested_identifier property: (property_identifier) @property.type)
(enum_declaration name: (identifier) @property.type)

; Keywords

["abstract" "accessor" "asserts" "declare" "enum" "global" "implements" "infer" "interface" "is" "keyof" "module"
 "namespace" "override" "private" "protected" "public" "readonly" "satisfies" "type" "unique symbol"] @keyword

; Operators and punctuation

["?." "-?:" "+?:" "?:"] @operator
(non_null_expression "!" @operator)
(optional_parameter "?" @operator)
(property_signature "?" @operator)
(method_signature "?" @operator)
(public_field_definition "?" @operator)
(conditional_type ["?" ":"] @operator)

(type_arguments ["<" ">"] @punctuation.bracket.type)
(type_parameters ["<" ">"] @punctuation.bracket.type)
(template_literal_type "`" @string)
(template_literal_type (string_fragment) @string)
(template_type ["${" "}"] @punctuation.special)
