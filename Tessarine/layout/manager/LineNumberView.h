#pragma once

#include "Tessarine/layout/ReusableView.h"
#include "Tessarine/layout/manager/Label.h"

#include <cstdint>
#include <memory>

namespace tessarine {

// The number of a line, at the right end of the view.
class LineNumberView final : public View, public ReusableView {
public:
    Label& titleLabel() { return *m_titleLabel; }

    // The line that it shows, zero-based.
    std::int64_t row() const { return m_row; }

    void setRow(std::int64_t row) { m_row = row; }

    // In points. As wide as the title is in its font.
    void setTitleWidth(double width);

    void prepareForReuse() override {}

protected:
    void layoutSubviews() override;

private:
    const std::shared_ptr<Label> m_titleLabel = std::make_shared<Label>();
    std::int64_t m_row = 0;
    double m_titleWidth = 0;
};

} // namespace tessarine
