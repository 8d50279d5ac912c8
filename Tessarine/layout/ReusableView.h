#pragma once

namespace tessarine {

// A view that serves one thing after the other.
class ReusableView {
public:
    ReusableView() = default;
    ReusableView(const ReusableView&) = delete;
    ReusableView& operator=(const ReusableView&) = delete;
    virtual ~ReusableView() = default;

    // Lets go of what it has shown; run when it goes back to the pool.
    virtual void prepareForReuse() = 0;
};

} // namespace tessarine
