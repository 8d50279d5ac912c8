#include "Tessarine/syntax/TreeSitterTextPoint.h"

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/syntax/Checked32.h"

namespace tessarine {

TreeSitterTextPoint::TreeSitterTextPoint(const LinePosition& position)
    : m_rawValue{checked32(position.row), checked32(ByteCount::ofCodeUnits(position.column).value())} {}

std::string TreeSitterTextPoint::debugDescription() const {
    return "[TreeSitterTextPoint row=" + std::to_string(row()) + " column=" + std::to_string(column()) + "]";
}

} // namespace tessarine
