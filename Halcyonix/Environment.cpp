#include "Halcyonix/Environment.h"

namespace halcyonix {

Environment& Environment::shared() {
    static Environment environment;
    return environment;
}

} // namespace halcyonix
