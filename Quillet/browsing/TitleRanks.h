#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <vector>

namespace quillet {

// For each text its place among all of them by the plain order of code units; equal texts have equal places.
std::vector<std::uint32_t> ranksOf(const std::vector<QString>& texts);

} // namespace quillet
