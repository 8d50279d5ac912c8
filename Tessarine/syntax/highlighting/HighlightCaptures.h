#pragma once

#include "Tessarine/document/ByteRange.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/ParseLimit.h"
#include "Tessarine/syntax/TreeSitterLanguageLayers.h"

#include <string>
#include <vector>

namespace tessarine {

// What is left of a capture when its tree and its query may have gone.
struct HighlightCapture {
    ByteRange byteRange;
    std::string name;
};

// Those that touch a range, in the order in which they take effect, each over those before it: by their
// starts; from one start the longer first; of one range the name with fewer parts first. What is equal in
// all that stays in the order of the matches, a parent layer before its children. So an inner capture beats
// the one around it, and a special name the general one.
//
// Once the limit is reached any number may be missing.
std::vector<HighlightCapture> highlightCaptures(TreeSitterLanguageLayers& layers, const ByteRange& range,
                                                const TextSnapshot& text, const ParseLimit& limit);

} // namespace tessarine
