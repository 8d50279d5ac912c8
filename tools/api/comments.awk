# Turns our comments into what Doxygen reads: those on lines of their own belong to what follows, those behind a
# declaration to it, one that a file begins with to the file, and a heading "// ---- ..." to all up to the next one.

function closeGroup() {
    if (isInGroup) print "///@}"
    isInGroup = 0
}

/^#pragma once/ { pragma = NR }

(NR == 1 || (pragma && NR == pragma + 2)) && /^\/\/ / { print "/// \\file" }

/^ *\/\/ ---- / {
    closeGroup()
    sub(/^ *\/\/ ---- /, "")
    print "/// \\name " $0 "\n///@{"
    isInGroup = 1
    next
}

/^(};|private:)/ { closeGroup() }

{
    if (match($0, /^ *\/\//)) $0 = "///" substr($0, RLENGTH + 1)
    else if (match($0, /[;,{}] *\/\/ /)) $0 = substr($0, 1, RSTART + RLENGTH - 2) "/<" substr($0, RSTART + RLENGTH - 1)
    print
}
