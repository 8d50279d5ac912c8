#include "Tessarine/document/IndentStrategy.h"

namespace tessarine {

std::int64_t IndentStrategy::tabLength() const {
    const auto* space = std::get_if<Space>(&m_kind);
    return space ? space->length : 1;
}

std::u16string IndentStrategy::string(std::int64_t indentLevel) const {
    const char16_t character = std::holds_alternative<Tab>(m_kind) ? u'\t' : u' ';
    return std::u16string(static_cast<std::size_t>(tabLength() * indentLevel), character);
}

} // namespace tessarine
