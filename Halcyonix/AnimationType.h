#pragma once

namespace halcyonix {

enum class AnimationType { Present, Dismiss };

} // namespace halcyonix
