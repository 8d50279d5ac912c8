#pragma once

#include <optional>
#include <string>

namespace tessarine {

class LineFragmentRenderer;

// Whoever knows the text of a row.
class LineFragmentRendererDelegate {
public:
    LineFragmentRendererDelegate() = default;
    LineFragmentRendererDelegate(const LineFragmentRendererDelegate&) = delete;
    LineFragmentRendererDelegate& operator=(const LineFragmentRendererDelegate&) = delete;
    virtual ~LineFragmentRendererDelegate() = default;

    virtual std::optional<std::u16string> string(const LineFragmentRenderer& renderer) = 0;
};

} // namespace tessarine
