#pragma once

#include "Tessarine/document/LineEnding.h"
#include "Tessarine/textview/TextView.h"

#include <QtCore/QString>

namespace tessarine::editor {

QString displayName(LineEnding lineEnding);

// Ends every line with it, undone as one step, and writes further ones so. O(text).
void convertLineEndings(TextView& view, LineEnding lineEnding);

// Goes on as the text is written, where it has line breaks: undoing may have brought back others. A look at
// its first lines.
void followLineEndings(TextView& view);

} // namespace tessarine::editor
