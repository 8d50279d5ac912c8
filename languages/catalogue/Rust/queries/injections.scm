; What a macro is given is Rust more often than not.

(macro_invocation (token_tree) @rust)
(macro_rule right: (token_tree) @rust)

; Regex::new("...")

((call_expression
  function: (scoped_identifier path: (identifier) @language)
  arguments: (arguments . [(string_literal (string_content) @content)
                           (raw_string_literal (string_content) @content)]))
  (#eq? @language "Regex"))

([(line_comment) (block_comment)] @comment
  (#match? @comment "(TODO|FIXME|XXX|HACK|NOTE)"))
