#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/textview/TextView.h"

namespace tessarine::editor {

// The view shows another text from now on, which is mostly the one that it shows: the part that differs is
// replaced, as one step that can be undone. Selection and what is in view stay with their text. O(text).
void takeChange(TextView& view, const TextSnapshot& text);

} // namespace tessarine::editor
