; A stretch belongs to the first pattern that finds it.

((script_element
  (start_tag (attribute (attribute_name) (quoted_attribute_value (attribute_value) @type)))
  (raw_text) @json)
  (#match? @type "json|importmap"))

((script_element
  (start_tag (attribute (attribute_name) (quoted_attribute_value (attribute_value) @type)))
  (raw_text) @html)
  (#match? @type "^text/(html|template|x-)"))

((script_element
  (start_tag (attribute (attribute_name) (quoted_attribute_value (attribute_value) @type)))
  (raw_text) @typescript)
  (#match? @type "^(ts|typescript|text/typescript)$"))

(script_element (raw_text) @javascript)
(style_element (raw_text) @css)

((attribute (attribute_name) @name (quoted_attribute_value (attribute_value) @javascript))
  (#match? @name "^on[a-z]+$"))

((attribute (attribute_name) @name (quoted_attribute_value (attribute_value) @css))
  (#eq? @name "style"))

(comment) @comment
