; Tags: an element of the page by a lower-case name, a component by any other.

(jsx_opening_element name: (identifier) @keyword.tag)
(jsx_closing_element name: (identifier) @keyword.tag)
(jsx_self_closing_element name: (identifier) @keyword.tag)

((jsx_opening_element name: (identifier) @property.type.component)
  (#match? @property.type.component "^[A-Z]"))
((jsx_closing_element name: (identifier) @property.type.component)
  (#match? @property.type.component "^[A-Z]"))
((jsx_self_closing_element name: (identifier) @property.type.component)
  (#match? @property.type.component "^[A-Z]"))

(jsx_opening_element name: (member_expression (property_identifier) @property.type.component))
(jsx_closing_element name: (member_expression (property_identifier) @property.type.component))
(jsx_self_closing_element name: (member_expression (property_identifier) @property.type.component))
(jsx_namespace_name (identifier) @keyword.tag)

(jsx_attribute (property_identifier) @property.attribute)
(jsx_attribute (jsx_namespace_name (identifier) @property.attribute.name))
(jsx_attribute "=" @operator)

(jsx_opening_element ["<" ">"] @punctuation.bracket.tag)
(jsx_closing_element ["</" ">"] @punctuation.bracket.tag)
(jsx_self_closing_element ["<" "/>"] @punctuation.bracket.tag)
(jsx_expression ["{" "}"] @punctuation.special)

(html_character_reference) @property.escape
