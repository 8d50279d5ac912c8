; Commands

[(command_name) (todo_command_name)] @function
[(acronym_definition command: _ @function.command) (acronym_reference command: _ @function.command)
 (author_declaration command: _ @function.command) (caption command: _ @function.command)
 (changes_replaced command: _ @function.command) (chapter command: _ @function.command)
 (citation command: _ @function.command) (color_definition command: _ @function.command)
 (color_reference command: _ @function.command) (color_set_definition command: _ @function.command)
 (counter_addition command: _ @function.command) (counter_declaration command: _ @function.command)
 (counter_definition command: _ @function.command) (counter_increment command: _ @function.command)
 (counter_typesetting command: _ @function.command) (counter_value command: _ @function.command)
 (counter_within_declaration command: _ @function.command) (counter_without_declaration command: _ @function.command)
 (curly_group_command_name command: _ @function.command) (enum_item command: _ @function.command)
 (glossary_entry_definition command: _ @function.command) (glossary_entry_reference command: _ @function.command)
 (graphics_include command: _ @function.command) (hyperlink command: _ @function.command)
 (inkscape_include command: _ @function.command) (label_definition command: _ @function.command)
 (label_number command: _ @function.command) (label_reference command: _ @function.command)
 (label_reference_range command: _ @function.command) (paragraph command: _ @function.command)
 (part command: _ @function.command) (section command: _ @function.command)
 (subparagraph command: _ @function.command) (subsection command: _ @function.command)
 (subsubsection command: _ @function.command) (svg_include command: _ @function.command)
 (text_mode command: _ @function.command) (title_declaration command: _ @function.command)
 (verbatim_include command: _ @function.command)]
(new_command_definition declaration: (command_name) @function.definition)
(curly_group_command_name (command_name) @function.definition)
(old_command_definition declaration: (command_name) @function.definition)
(let_command_definition declaration: (command_name) @function.definition)
(placeholder) @variable.builtin
[(argc) (value_literal)] @number

; What gives the document its shape

(begin command: _ @keyword.environment)
(end command: _ @keyword.environment)
(class_include command: _ @keyword.import)
(package_include command: _ @keyword.import)
(tikz_library_import command: _ @keyword.import)
(latex_include command: _ @keyword.import)
(import_include command: _ @keyword.import)
(bibtex_include command: _ @keyword.import)
(biblatex_include "\\addbibresource" @keyword.import)
(bibstyle_include command: _ @keyword.import)
(new_command_definition command: _ @keyword.definition)
(old_command_definition command: _ @keyword.definition)
(let_command_definition command: _ @keyword.definition)
(environment_definition command: _ @keyword.definition)
(theorem_definition command: _ @keyword.definition)
(paired_delimiter_definition command: _ @keyword.definition)
(math_delimiter left_command: _ @keyword.delimiter right_command: _ @keyword.delimiter)

(begin name: (curly_group_text (text) @property.type))
(end name: (curly_group_text (text) @property.type))
(environment_definition name: (curly_group_text (text) @property.type))
(theorem_definition name: (curly_group_text_list (text) @property.type))

; Titles

(title_declaration text: (curly_group (_) @keyword.heading))
(part text: (curly_group (_) @keyword.heading))
(chapter text: (curly_group (_) @keyword.heading))
(section text: (curly_group (_) @keyword.heading))
(subsection text: (curly_group (_) @keyword.heading))
(subsubsection text: (curly_group (_) @keyword.heading))
(paragraph text: (curly_group (_) @keyword.heading))
(subparagraph text: (curly_group (_) @keyword.heading))

; Names that a document refers to

(label) @property.label
(citation keys: (curly_group_text_list (text) @property.label))
(acronym_reference name: (curly_group_text (text) @property.label))
(acronym_definition name: (curly_group_text (text) @property.label))
(glossary_entry_reference name: (curly_group_text (text) @property.label))
(glossary_entry_definition name: (curly_group_text (text) @property.label))
(color_reference name: (curly_group_text (text) @property.color))
(color_definition name: (curly_group_text (text) @property.color))
(counter_declaration counter: (curly_group_word (word) @property.counter))
(counter_definition counter: (curly_group_word (word) @property.counter))
(counter_addition counter: (curly_group_word (word) @property.counter))
(counter_increment counter: (curly_group_word (word) @property.counter))
(counter_typesetting counter: (curly_group_word (word) @property.counter))
(counter_value counter: (curly_group_word (word) @property.counter))
(begin language: (curly_group_text (text) @property.argument))
(key_value_pair key: (text) @property)
[(path) (glob_pattern)] @string.path
(uri) @string.uri

; Mathematics

[(inline_formula) (displayed_equation) (math_environment)] @string.math
(inline_formula ["$" "\\(" "\\)"] @punctuation.special)
(displayed_equation ["$$" "\\[" "\\]"] @punctuation.special)
[(operator) "^" "_"] @operator

; Verbatim text; what another language colours has no colour of its own

(verbatim_environment verbatim: (comment) @string.verbatim)
(listing_environment code: (source_code) @string.verbatim)

; Punctuation

["{" "}" "[" "]"] @punctuation.bracket
["," (delimiter)] @punctuation.delimiter
(key_value_pair "=" @operator)

; Comments

[(line_comment) (block_comment) (comment)] @comment
(comment_environment comment: (comment) @comment.environment)
(block_comment ["\\iffalse" "\\fi"] @keyword.comment)

((line_comment) @keyword.directive
  (#match? @keyword.directive "^% *!(TEX|TeX|BIB)"))
