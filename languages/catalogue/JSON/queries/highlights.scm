(string) @string
(escape_sequence) @property.escape
(pair key: (string) @property.key)
(number) @number
[(true) (false) (null)] @number @constant.builtin
(comment) @comment

["{" "}" "[" "]"] @punctuation.bracket
["," ":"] @punctuation.delimiter
