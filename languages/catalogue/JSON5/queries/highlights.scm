(string) @string
(escape_sequence) @property.escape
(pair key: [(string) (identifier)] @property.key)
(number) @number
[(true) (false) (null)] @number @constant.builtin
["Infinity" "NaN"] @number @constant.builtin
(comment) @comment

["{" "}" "[" "]"] @punctuation.bracket
["," ":"] @punctuation.delimiter
["+" "-"] @operator
