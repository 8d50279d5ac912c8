#pragma once

#include <QtCore/QString>

namespace halcyonix {

// What the card about a device says. `image` is the name of an image of the program's own.
struct DevicePopoverConfig {
    QString image;
    QString title;
    QString subtitle;
};

} // namespace halcyonix
