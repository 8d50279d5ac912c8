(escape_sequence) @property.escape
"@scope" @keyword
(postcss_statement (at_keyword) @keyword)
