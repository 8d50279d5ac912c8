(html_tag) @html
(latex_block) @latex
