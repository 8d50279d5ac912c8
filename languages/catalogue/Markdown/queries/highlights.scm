; Blocks. What stands in their lines is of another grammar: see highlights-inline.scm.

(atx_heading) @keyword.heading
(setext_heading) @keyword.heading

[(list_marker_minus) (list_marker_plus) (list_marker_star) (list_marker_dot) (list_marker_parenthesis)
 (block_quote_marker) (thematic_break)] @operator.marker
[(task_list_marker_checked) (task_list_marker_unchecked)] @property.marker
(block_quote (paragraph) @comment.quote)
(block_continuation) @operator.marker

(indented_code_block) @string.code
(fenced_code_block_delimiter) @operator.marker
(info_string) @property.language
(fenced_code_block . (fenced_code_block_delimiter) . (block_continuation) . (code_fence_content) @string.code)

(link_reference_definition (link_label) @function.link)
(link_reference_definition ":" @punctuation.delimiter)
(link_destination) @property.link
(link_title) @string

(pipe_table_header (pipe_table_cell) @keyword.heading)
(pipe_table_delimiter_row) @operator.marker
(pipe_table_header "|" @operator.marker)
(pipe_table_row "|" @operator.marker)
