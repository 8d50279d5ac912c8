# Turns our comments into what Doxygen reads: those on lines of their own belong to what follows, those behind a
# declaration to it, and one that a file begins with to the file.
1s,^// ,/// \\file\n/// ,
/^#pragma once/{n;n;s,^// ,/// \\file\n/// ,}
s,^( *)//( |$),\1///\2,
s,([;\,{}] *)// ,\1///< ,
