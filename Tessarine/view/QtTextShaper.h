#pragma once

#include "Tessarine/layout/TextShaper.h"
#include "Tessarine/view/RowLayouts.h"

namespace tessarine {

// The toolkit's text system. One for a program, or for each text view; its rows outlive it.
class QtTextShaper final : public TextShaper {
public:
    std::unique_ptr<Typesetter>
    createTypesetter(std::shared_ptr<const AttributedString> attributedString) const override;

private:
    const std::shared_ptr<RowStyles> m_styles = std::make_shared<RowStyles>();
    const std::shared_ptr<RowLayouts> m_layouts = std::make_shared<RowLayouts>();
};

} // namespace tessarine
