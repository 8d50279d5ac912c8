#pragma once

#include <optional>
#include <string>

namespace tessarine {

class LineFragmentController;

// Whoever knows the text of a row.
class LineFragmentControllerDelegate {
public:
    LineFragmentControllerDelegate() = default;
    LineFragmentControllerDelegate(const LineFragmentControllerDelegate&) = delete;
    LineFragmentControllerDelegate& operator=(const LineFragmentControllerDelegate&) = delete;
    virtual ~LineFragmentControllerDelegate() = default;

    // Nothing if the document does not reach there any more.
    virtual std::optional<std::u16string> string(const LineFragmentController& controller) = 0;
};

} // namespace tessarine
