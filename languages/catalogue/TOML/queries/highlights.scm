; Keys

[(bare_key) (quoted_key)] @property
(table [(bare_key) (quoted_key)] @property.type)
(table (dotted_key [(bare_key) (quoted_key)] @property.type))
(table_array_element [(bare_key) (quoted_key)] @property.type)
(table_array_element (dotted_key [(bare_key) (quoted_key)] @property.type))
(table_array_element (dotted_key (dotted_key (bare_key) @property.type)))
(table (dotted_key (dotted_key (bare_key) @property.type)))

; Values

(string) @string
(escape_sequence) @property.escape
[(integer) (float)] @number
[(local_date) (local_date_time) (local_time) (offset_date_time)] @number.date
(boolean) @number @constant.builtin

; Punctuation

"=" @operator
["[" "]" "[[" "]]" "{" "}"] @punctuation.bracket
["," "."] @punctuation.delimiter

(comment) @comment
