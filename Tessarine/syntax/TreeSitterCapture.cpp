#include "Tessarine/syntax/TreeSitterCapture.h"

namespace tessarine {

std::string TreeSitterCapture::debugDescription() const {
    return "[TreeSitterCapture node=" + m_node.debugDescription() + " index=" + std::to_string(m_index) +
           " name=" + std::string(name()) + " byteRange=" + m_byteRange.description() + "]";
}

} // namespace tessarine
