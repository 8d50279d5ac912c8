// Stands between the parser and a scanner that writes its state without asking whether it is longer than the
// parser's buffer. Such a state is forgotten, as other scanners do with theirs: in text nested hundreds deep
// the tree is another one, and no memory is hurt.
//
// SERIALIZE is the name by which the parser knows the function; the build gives the scanner's own another.
#include <string.h>
#include <tree_sitter/parser.h>

// A state begins as one that fitted, and a token adds a few bytes to it.
enum { kept = TREE_SITTER_SERIALIZATION_BUFFER_SIZE, room = 2 * kept };

unsigned OWN_SERIALIZE(void* payload, char* buffer);

unsigned SERIALIZE(void* payload, char* buffer) {
    char state[room];
    const unsigned length = OWN_SERIALIZE(payload, state);
    if (length > kept) return 0;
    memcpy(buffer, state, length);
    return length;
}
