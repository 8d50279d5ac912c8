(comment) @comment
