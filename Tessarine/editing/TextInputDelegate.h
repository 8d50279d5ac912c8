#pragma once

namespace tessarine {

// The input system, which has to know of changes that it did not ask for. Main thread.
class TextInputDelegate {
public:
    TextInputDelegate() = default;
    TextInputDelegate(const TextInputDelegate&) = delete;
    TextInputDelegate& operator=(const TextInputDelegate&) = delete;
    virtual ~TextInputDelegate() = default;

    virtual void selectionWillChange() = 0;
    virtual void selectionDidChange() = 0;
    virtual void textWillChange() = 0;
    virtual void textDidChange() = 0;

    // A deletion has moved the selection.
    virtual void selectionChanged() = 0;
};

} // namespace tessarine
