; What style sheets of both kinds have.

; Selectors

(tag_name) @keyword.tag
(universal_selector) @keyword.tag
(nesting_selector) @keyword.tag
(class_name) @number.class
(id_name) @function.id
(attribute_name) @property.attribute
(pseudo_class_selector (class_name) @keyword.pseudo.class)
(pseudo_element_selector "::" (tag_name) @keyword.pseudo)
[(from) (to)] @keyword
(keyframe_block (integer_value) @keyword.pseudo)
(keyframes_name) @function.animation
(namespace_name) @property.type

; Declarations

(property_name) @property
(feature_name) @property

((property_name) @variable.builtin
  (#match? @variable.builtin "^(--|\\$)"))
((plain_value) @variable.builtin
  (#match? @variable.builtin "^--"))

(function_name) @function
(string_value) @string
(color_value) @number.color
[(integer_value) (float_value)] @number
(important) @keyword

; Rules

["@charset" "@import" "@keyframes" "@media" "@namespace" "@supports"] @keyword
(at_keyword) @keyword
(keyword_query) @keyword.query
["and" "not" "only" "or" "selector"] @keyword.operator

; Operators and punctuation

["~" ">" "+" "-" "*" "/" "=" "^=" "|=" "~=" "$=" "*=" "|"] @operator
["(" ")" "[" "]" "{" "}"] @punctuation.bracket
["," ":" "::" ";" "."] @punctuation.delimiter

(comment) @comment
