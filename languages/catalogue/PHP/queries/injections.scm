; The page around the programme

(text) @html

; <<<HTML, <<<JSON and the like

(heredoc
  identifier: (heredoc_start) @language
  value: (heredoc_body) @content)
(nowdoc
  identifier: (heredoc_start) @language
  value: (nowdoc_body) @content)

; A first argument between slashes

((function_call_expression
  arguments: (arguments . (argument (string (string_content) @regex))))
  (#match? @regex "^/.+/[A-Za-z]*$"))

((comment) @jsdoc
  (#match? @jsdoc "^/\\*\\*[^*/]"))
((comment) @comment
  (#match? @comment "^(#|//|/\\*[^*])[\\s\\S]*(TODO|FIXME|XXX|HACK|NOTE)"))
