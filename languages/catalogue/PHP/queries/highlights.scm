; Names

(variable_name) @property.variable
(dynamic_variable_name "$" @property.variable)
((variable_name) @variable.builtin
  (#match? @variable.builtin "^\\$(this|GLOBALS|_(COOKIE|ENV|FILES|GET|POST|REQUEST|SERVER|SESSION))$"))
((variable_name (name) @property.variable.name)
  (#match? @property.variable.name "^[A-Z0-9_]+$"))
((variable_name (name) @variable.builtin.name)
  (#match? @variable.builtin.name "^(GLOBALS|_(COOKIE|ENV|FILES|GET|POST|REQUEST|SERVER|SESSION))$"))

((name) @number.value @constant.value
  (#match? @constant.value "^_*[A-Z][A-Z0-9_]+$"))

(member_access_expression name: (name) @property)
(nullsafe_member_access_expression name: (name) @property)
(scoped_property_access_expression name: (variable_name) @property.static)
(const_element (name) @number.value @constant.value)
(class_constant_access_expression (_) (name) @number.value @constant.value)
(argument name: (name) @property.argument)
(named_label_statement (name) @property.label)
(goto_statement (name) @property.label)

; Types

(named_type [(name) (qualified_name (name)) (relative_name (name))] @property.type)
(primitive_type) @keyword.type
[(cast_type) (bottom_type)] @keyword.type
(class_declaration name: (name) @property.type)
(interface_declaration name: (name) @property.type)
(trait_declaration name: (name) @property.type)
(enum_declaration name: (name) @property.type)
(enum_case name: (name) @property.type.variant)
(base_clause (name) @property.type)
(class_interface_clause (name) @property.type)
(qualified_name (name) @property.type)
(use_declaration (name) @property.type)
(use_instead_of_clause (name) @property.type.trait)
(object_creation_expression (name) @property.type)
(scoped_call_expression scope: (name) @property.type)
(scoped_property_access_expression scope: (name) @property.type)
(class_constant_access_expression . (name) @property.type)
(binary_expression operator: "instanceof" right: (name) @property.type)
(namespace_use_clause (name) @property.type)
(namespace_use_clause (qualified_name (name) @property.type))
(use_list (use_as_clause (name) @function.method))
(use_instead_of_clause (class_constant_access_expression (name) (name) @function.method.trait))
((class_constant_access_expression (_) (name) @keyword.class.name)
  (#eq? @keyword.class.name "class"))

(relative_scope) @variable.builtin.scope

; Functions

(function_definition name: (name) @function.definition)
(method_declaration name: (name) @function.definition)
(function_call_expression function: (name) @function.call.name)
(function_call_expression function: (qualified_name (name) @function.call.name))
((namespace_use_clause (name) @function.import.name)
  (#match? @function.import.name "^[a-z_]"))
(member_call_expression name: (name) @function.method)
(nullsafe_member_call_expression name: (name) @function.method)
(scoped_call_expression name: (name) @function.method)
(property_hook (name) @keyword.hook)

; Parameters

(simple_parameter name: (variable_name) @property.variable.parameter)
(variadic_parameter name: (variable_name) @property.variable.parameter)

; Attributes

(attribute (name) @property.annotation.name)
(attribute (qualified_name (name) @property.annotation.name))
(attribute_group ["#[" "]"] @property.annotation)

; Literals

[(integer) (float)] @number
[(boolean) (null)] @number @constant.builtin
[(string) (nowdoc_body) (heredoc_start) (heredoc_end)] @string
(encapsed_string ["\"" (string_content)] @string)
(encapsed_string (subscript_expression (name) @string))
(heredoc ["<<<" "\""] @string)
(nowdoc ["<<<" "'"] @string)
(heredoc_body (string_content) @string)
(shell_command_expression ["`" (string_content)] @string)
(escape_sequence) @property.escape
(encapsed_string ["{" "}"] @punctuation.special)
(heredoc_body ["{" "}"] @punctuation.special)

; Keywords

["abstract" "and" "array" "as" "break" "case" "catch" "class" "clone" "const" "continue" "declare" "default" "do"
 "echo" "else" "elseif" "enddeclare" "endfor" "endforeach" "endif" "endswitch" "endwhile" "enum" "exit" "extends"
 "final" "finally" "fn" "for" "foreach" "function" "global" "goto" "if" "implements" "include" "include_once"
 "instanceof" "insteadof" "interface" "list" "match" "namespace" "new" "or" "parent" "print" "private" "protected"
 "public" "readonly" "require" "require_once" "return" "self" "static" "switch" "throw" "trait" "try" "unset"
 "use" "while" "xor" "yield" "yield from" (var_modifier)] @keyword

(declare_directive ["encoding" "strict_types" "ticks"] @property)

[(php_tag) (php_end_tag)] @keyword.directive

; Operators and punctuation

["!" "!=" "!==" "%" "%=" "&" "&&" "&=" "*" "**" "**=" "*=" "+" "++" "+=" "-" "--" "-=" "->" "." "..." ".=" "/" "/="
 "::" "<" "<<" "<<=" "<=" "<=>" "<>" "=" "==" "===" "=>" ">" ">=" ">>" ">>=" "?" "?->" "??" "??=" "@" "^" "^="
 "|" "|=" "|>" "||" "~" (reference_modifier)] @operator

(conditional_expression ":" @operator)

["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," ":" ";" "\\"] @punctuation.delimiter

; Comments

(comment) @comment

((comment) @comment.documentation
  (#match? @comment.documentation "^/\\*\\*[^*/]"))
