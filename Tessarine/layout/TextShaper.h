#pragma once

#include "Tessarine/layout/Typesetter.h"

#include <memory>

namespace tessarine {

// The host's text system, as far as rows are made with it. Main thread.
class TextShaper {
public:
    TextShaper() = default;
    TextShaper(const TextShaper&) = delete;
    TextShaper& operator=(const TextShaper&) = delete;
    virtual ~TextShaper() = default;

    // Of a string that is not null, and whose attributes do not change as long as the typesetter is used; for
    // others another one is made. It costs no more for a long string than for a short one.
    virtual std::unique_ptr<Typesetter>
    createTypesetter(std::shared_ptr<const AttributedString> attributedString) const = 0;
};

} // namespace tessarine
