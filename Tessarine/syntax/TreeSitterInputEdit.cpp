#include "Tessarine/syntax/TreeSitterInputEdit.h"

#include "Tessarine/syntax/Checked32.h"

namespace tessarine {

TSInputEdit TreeSitterInputEdit::rawValue() const {
    return {.start_byte = checked32(startByte.value()),
            .old_end_byte = checked32(oldEndByte.value()),
            .new_end_byte = checked32(newEndByte.value()),
            .start_point = startPoint.rawValue(),
            .old_end_point = oldEndPoint.rawValue(),
            .new_end_point = newEndPoint.rawValue()};
}

std::string TreeSitterInputEdit::debugDescription() const {
    return "[TreeSitterInputEdit startByte=" + startByte.description() +
           " oldEndByte=" + oldEndByte.description() + " newEndByte=" + newEndByte.description() +
           " startPoint=" + startPoint.debugDescription() + " oldEndPoint=" + oldEndPoint.debugDescription() +
           " newEndPoint=" + newEndPoint.debugDescription() + "]";
}

} // namespace tessarine
