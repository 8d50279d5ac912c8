#pragma once

#include "Tessarine/syntax/highlighting/LineSyntaxHighlighter.h"

#include <memory>

namespace tessarine {

class LineController;

// What a line asks of the layout that it is a part of. Main thread.
class LineControllerDelegate {
public:
    LineControllerDelegate() = default;
    LineControllerDelegate(const LineControllerDelegate&) = delete;
    LineControllerDelegate& operator=(const LineControllerDelegate&) = delete;
    virtual ~LineControllerDelegate() = default;

    // A new one of the language mode, with the theme and the kern. Not null.
    virtual std::shared_ptr<LineSyntaxHighlighter> lineSyntaxHighlighter(LineController& controller) = 0;

    // Its colours have come from the background, and it is not as wide or as high as before.
    virtual void lineControllerDidChangeHeight(LineController& controller) = 0;
};

} // namespace tessarine
