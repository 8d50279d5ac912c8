(emphasis) @number.emphasis
(strong_emphasis) @number.strong
(strikethrough) @comment.strikethrough
(emphasis_delimiter) @operator.marker

(html_tag) @keyword.tag

(code_span) @string.code
(code_span_delimiter) @operator.marker
(latex_span_delimiter) @operator.marker

[(link_text) (link_label) (image_description)] @function.link
[(link_destination) (uri_autolink) (email_autolink)] @property.link
(link_title) @string
(inline_link ["[" "]" "(" ")"] @operator.marker)
(image ["!" "[" "]" "(" ")"] @operator.marker)
(full_reference_link ["[" "]"] @operator.marker)
(collapsed_reference_link ["[" "]"] @operator.marker)
(shortcut_link ["[" "]"] @operator.marker)

[(backslash_escape) (entity_reference) (numeric_character_reference) (hard_line_break)] @property.escape
