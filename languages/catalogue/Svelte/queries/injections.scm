; A stretch belongs to the first pattern that finds it.

((script_element
  (start_tag (attribute (attribute_name) (quoted_attribute_value (attribute_value) @language)))
  (raw_text) @typescript)
  (#match? @language "^(ts|typescript)$"))

((style_element
  (start_tag (attribute (attribute_name) (quoted_attribute_value (attribute_value) @language)))
  (raw_text) @scss)
  (#eq? @language "scss"))

(script_element (raw_text) @javascript)
(style_element (raw_text) @css)
(svelte_raw_text) @typescript

(comment) @comment
