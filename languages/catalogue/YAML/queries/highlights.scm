; Keys: their own colour lies over that of the scalars that they are.

(block_mapping_pair
  key: (flow_node [(double_quote_scalar) (single_quote_scalar)] @property.key))
(flow_pair
  key: (flow_node [(double_quote_scalar) (single_quote_scalar)] @property.key))
(block_mapping_pair key: (flow_node (plain_scalar (_) @property.key.plain)))
(flow_pair key: (flow_node (plain_scalar (_) @property.key.plain)))

((block_mapping_pair
  key: (flow_node (plain_scalar (string_scalar) @keyword.merge.key.name)))
  (#eq? @keyword.merge.key.name "<<"))

; Values

(string_scalar) @string
[(double_quote_scalar) (single_quote_scalar) (block_scalar)] @string
(escape_sequence) @property.escape
[(integer_scalar) (float_scalar)] @number
((string_scalar) @number.date
  (#match? @number.date "^[0-9]{4}-[0-9]{2}-[0-9]{2}([Tt ][0-9:.]+ *(Z|[-+][0-9:]+)?)?$"))
[(boolean_scalar) (null_scalar)] @number @constant.builtin

; Anchors, aliases, tags

(anchor ["&" (anchor_name)] @variable.builtin)
(alias ["*" (alias_name)] @variable.builtin)
(tag) @property.type

; Directives

[(yaml_directive) (tag_directive) (reserved_directive)] @keyword.directive
(yaml_version) @number
(tag_handle) @property.type
(tag_prefix) @string
["---" "..."] @keyword.document

; Punctuation

["[" "]" "{" "}"] @punctuation.bracket
["," "-" ":" "?"] @punctuation.delimiter
["|" ">"] @operator

(comment) @comment
