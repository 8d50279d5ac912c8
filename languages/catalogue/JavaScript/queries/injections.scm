; A comment belongs to the first pattern that finds it.

((comment) @jsdoc
  (#match? @jsdoc "^/\\*\\*[^*/]"))

(regex_pattern) @regex

(comment) @comment

; Template strings that say by their tag what they are.

((call_expression
  function: (identifier) @language
  arguments: (template_string (string_fragment) @content))
  (#match? @language "^(css|html|json|markdown|md)$"))
