(fenced_code_block
  (info_string (language) @language)
  (code_fence_content) @content)

(html_block) @html
(minus_metadata) @yaml
(plus_metadata) @toml

(inline) @markdown_inline
(pipe_table_cell) @markdown_inline
