#include "Tessarine/view/QtTextShaper.h"

#include "Tessarine/view/QtTypesetter.h"

#include <utility>

namespace tessarine {

std::unique_ptr<Typesetter>
QtTextShaper::createTypesetter(std::shared_ptr<const AttributedString> attributedString) const {
    return std::make_unique<QtTypesetter>(std::move(attributedString), m_styles, m_layouts);
}

} // namespace tessarine
