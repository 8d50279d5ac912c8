#pragma once

namespace tessarine {

enum class UserInterfaceStyle { Light, Dark };

} // namespace tessarine
