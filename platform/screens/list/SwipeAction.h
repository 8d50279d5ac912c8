#pragma once

#include <QtCore/QString>

#include <functional>

namespace platform {

// What a swipe over a row uncovers.
struct SwipeAction {
    enum class Role { Normal, Destructive };

    QString title;
    QString symbol;
    Role role = Role::Normal;
    std::function<void()> handler;
};

} // namespace platform
