#pragma once

#include "Tessarine/base/UserInterfaceStyle.h"
#include "Tessarine/theme/Theme.h"

namespace tessarine::themes {

// A theme that also says what the editor stands on.
class EditorTheme : public Theme {
public:
    virtual Color backgroundColor() const = 0;
    virtual UserInterfaceStyle userInterfaceStyle() const = 0;
};

} // namespace tessarine::themes
