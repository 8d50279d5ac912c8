#include "Tessarine/syntax/TreeSitterTextRange.h"

namespace tessarine {

std::string TreeSitterTextRange::debugDescription() const {
    return "[TreeSitterTextRange startByte=" + startByte().description() +
           " endByte=" + endByte().description() + " startPoint=" + startPoint().debugDescription() +
           " endPoint=" + endPoint().debugDescription() + "]";
}

} // namespace tessarine
