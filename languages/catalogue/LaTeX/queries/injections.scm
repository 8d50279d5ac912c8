; \begin{minted}{python}

(minted_environment
  begin: (begin language: (curly_group_text (text) @language))
  code: (source_code) @content)

(luacode_environment code: (source_code) @lua)
(pycode_environment code: (source_code) @python)
(sageblock_environment code: (source_code) @python)
(sagesilent_environment code: (source_code) @python)
(asy_environment code: (source_code) @cpp)

((line_comment) @comment
  (#match? @comment "(TODO|FIXME|XXX|HACK|NOTE)"))
