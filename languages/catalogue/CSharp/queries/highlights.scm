; Names

(predefined_type) @keyword.type
(implicit_type) @keyword.type

(class_declaration name: (identifier) @property.type)
(struct_declaration name: (identifier) @property.type)
(record_declaration name: (identifier) @property.type)
(interface_declaration name: (identifier) @property.type)
(enum_declaration name: (identifier) @property.type)
(delegate_declaration name: (identifier) @property.type)
(delegate_declaration type: (identifier) @property.type)
(type_parameter name: (identifier) @property.type)
(type_parameter_constraints_clause . (identifier) @property.type)
(type_parameter_constraint type: (identifier) @property.type)
(generic_name (identifier) @property.type)
(type_argument_list (identifier) @property.type)
(base_list (identifier) @property.type)
(primary_constructor_base_type type: (identifier) @property.type)
(variable_declaration type: (identifier) @property.type)
(parameter type: (identifier) @property.type)
(method_declaration returns: (identifier) @property.type)
(local_function_statement type: (identifier) @property.type)
(property_declaration type: (identifier) @property.type)
(indexer_declaration type: (identifier) @property.type)
(operator_declaration type: (identifier) @property.type)
(conversion_operator_declaration type: (identifier) @property.type)
(event_declaration type: (identifier) @property.type)
(object_creation_expression type: (identifier) @property.type)
(array_type type: (identifier) @property.type)
(nullable_type type: (identifier) @property.type)
(pointer_type type: (identifier) @property.type)
(cast_expression type: (identifier) @property.type)
(as_expression right: (identifier) @property.type)
(typeof_expression type: (identifier) @property.type)
(default_expression type: (identifier) @property.type)
(declaration_pattern type: (identifier) @property.type)
(recursive_pattern type: (identifier) @property.type)
(declaration_expression type: (identifier) @property.type)
(catch_declaration type: (identifier) @property.type)
(foreach_statement type: (identifier) @property.type)
(tuple_element type: (identifier) @property.type)
(explicit_interface_specifier (identifier) @property.type)

((constant_pattern (identifier) @property.type)
  (#match? @property.type "^[A-Z].*[a-z]"))
((member_access_expression expression: (identifier) @property.type)
  (#match? @property.type "^[A-Z].*[a-z]"))

(member_access_expression name: (identifier) @property)
(member_binding_expression name: (identifier) @property)
(property_declaration name: (identifier) @property)
(event_declaration name: (identifier) @property)
(event_field_declaration (variable_declaration (variable_declarator name: (identifier) @property)))
(field_declaration (variable_declaration (variable_declarator name: (identifier) @property)))
(initializer_expression (assignment_expression left: (identifier) @property))
(with_initializer (identifier) @property)
(attribute_argument name: (identifier) @property.parameter)
(argument name: (identifier) @property.parameter)

(enum_member_declaration name: (identifier) @number @constant)
((identifier) @number @constant
  (#match? @constant "^[A-Z][A-Z0-9_]+$"))

(labeled_statement . (identifier) @property.label)
(goto_statement (identifier) @property.label)

; Functions

(method_declaration name: (identifier) @function.method)
(local_function_statement name: (identifier) @function)
(constructor_declaration name: (identifier) @function.method)
(destructor_declaration name: (identifier) @function.method)
(invocation_expression function: (identifier) @function)
(invocation_expression function: (member_access_expression name: (identifier) @function.method))
(invocation_expression function: (conditional_access_expression (member_binding_expression name: (identifier) @function.method)))
(invocation_expression
  function: (member_access_expression name: (generic_name (identifier) @function.method.generic)))
(invocation_expression function: (generic_name (identifier) @function.method.generic))

; Attributes

(attribute name: (identifier) @property.annotation)
(attribute name: (qualified_name) @property.annotation)
(attribute_target_specifier) @keyword
(attribute_list ["[" "]"] @property.annotation)

; Literals

[(integer_literal) (real_literal)] @number
[(string_literal) (verbatim_string_literal) (raw_string_literal) (character_literal)] @string
[(interpolation_start) (interpolation_quote) (string_content)] @string
(interpolation_brace) @punctuation.special
(interpolation_format_clause) @string.format
(escape_sequence) @property.escape
[(boolean_literal) (null_literal)] @number @constant.builtin
(discard) @variable.builtin
["this" "base"] @variable.builtin

; Preprocessor

["#define" "#elif" "#else" "#endif" "#endregion" "#error" "#if" "#line" "#nullable" "#pragma" "#region" "#undef"
 "#warning"] @keyword.directive
(preproc_nullable) @keyword.directive
(preproc_pragma ["disable" "restore" "warning"] @keyword.directive)
(preproc_region content: (preproc_arg) @string.region)

; Keywords

["add" "alias" "as" "ascending" "async" "await" "break" "by" "case" "catch" "checked" "class" "const" "continue"
 "default" "delegate" "descending" "do" "else" "enum" "equals" "event" "explicit" "extern" "finally" "fixed" "for"
 "foreach" "from" "get" "global" "goto" "group" "if" "implicit" "in" "init" "interface" "into" "is" "join" "let"
 "lock" "namespace" "new" "notnull" "on" "operator" "orderby" "out" "params" "record" "ref" "remove" "return"
 "scoped" "select" "set" "sizeof" "stackalloc" "static" "struct" "switch" "throw" "try" "typeof" "unchecked"
 "unmanaged" "unsafe" "using" "when" "where" "while" "with" "yield"] @keyword
(modifier) @keyword
(constructor_constraint "new" @keyword)
["and" "or" "not"] @keyword.operator

; Operators and punctuation

["!" "!=" "%" "%=" "&" "&&" "&=" "*" "*=" "+" "++" "+=" "-" "--" "-=" "->" ".." "/" "/=" "<" "<<" "<<=" "<=" "="
 "==" "=>" ">" ">=" ">>" ">>=" ">>>" ">>>=" "?" "??" "??=" "^" "^=" "|" "|=" "||" "~"] @operator
(conditional_expression ":" @operator)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
(type_argument_list ["<" ">"] @punctuation.bracket.type)
(type_parameter_list ["<" ">"] @punctuation.bracket.type)
["," ";" "." ":" "::"] @punctuation.delimiter

; Comments

(comment) @comment
((comment) @comment.documentation
  (#match? @comment.documentation "^(///|/\\*\\*[^*/])"))
