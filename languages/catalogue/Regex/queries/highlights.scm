; The characters themselves are a string; what has a meaning stands out of it.

(pattern_character) @string.regex
(class_character) @string.regex

[(identity_escape) (control_escape) (control_letter_escape) (unicode_character_escape)] @property.escape

[(any_character) (character_class_escape) (posix_class_name) (unicode_property_value)] @number.class
(unicode_property_name) @property
(class_range "-" @operator)
(character_class "^" @operator)

[(start_assertion) (end_assertion) (boundary_assertion) (non_boundary_assertion)] @keyword.assertion
(lookaround_assertion ["(?" "(?<" "=" "!"] @keyword.assertion)

(group_name) @function.group
[(decimal_escape) (flags)] @variable.builtin
(backreference_escape "\\k" @variable.builtin)
(named_group_backreference "(?P=" @variable.builtin)

[(zero_or_more) (one_or_more) (optional) (lazy)] @operator
(count_quantifier ["{" "," "}"] @operator)
(decimal_digits) @number
(alternation "|" @operator)

["(" ")" "(?:" "(?P<" ">" "<" "[" "]" "[:" ":]"] @punctuation.bracket
(named_capturing_group "(?<" @punctuation.bracket)
(inline_flags_group ["(?" "-" ":"] @punctuation.bracket)
