#pragma once

#include "Tessarine/syntax/LanguageMode.h"

namespace tessarine {

class PlainTextLanguageMode final : public LanguageMode {};

} // namespace tessarine
