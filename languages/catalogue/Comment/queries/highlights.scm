; The words themselves keep the colour of the comment around them.

[(tag) (assigned_tag)] @keyword.todo
(uri) @property.link
(issue) @number.issue
(code) @string.code
