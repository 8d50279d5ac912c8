#include "Tessarine/layout/WordBoundary.h"

#include <unicode/uchar.h>

namespace tessarine {

bool isWordBoundary(char16_t unit) {
    return unit == u'\t' || u_charType(unit) == U_SPACE_SEPARATOR || u_ispunct(unit);
}

} // namespace tessarine
