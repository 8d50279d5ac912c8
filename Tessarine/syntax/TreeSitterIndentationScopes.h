#pragma once

#include <string>
#include <vector>

namespace tessarine {

// Which types of nodes indent what follows them.
struct TreeSitterIndentationScopes {
    std::vector<std::string> indent;        // a level more
    std::vector<std::string> inheritIndent; // decides like `indent`, without a level of its own
    std::vector<std::string> outdent;       // a level less
    bool whitespaceDenotesBlocks = false;

    std::string debugDescription() const;
};

} // namespace tessarine
