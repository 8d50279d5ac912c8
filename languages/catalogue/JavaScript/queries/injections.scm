((comment) @jsdoc
  (#match? @jsdoc "^/\\*\\*[^*/]"))

(regex_pattern) @regex
