#pragma once

#include "Tessarine/syntax/TreeSitterPredicate.h"
#include "Tessarine/syntax/TreeSitterTextPredicate.h"

#include <map>
#include <span>
#include <string>
#include <vector>

namespace tessarine {

// What the predicates of a pattern say: key-value pairs of its captures, and the conditions under which they
// stand.
struct TreeSitterPatternMeaning {
    std::map<std::string, std::string, std::less<>> properties;
    std::vector<TreeSitterTextPredicate> textPredicates;
};

class TreeSitterPredicateMapper {
public:
    // A predicate with the wrong steps is a fault of the query that stops the program.
    static TreeSitterPatternMeaning map(std::span<const TreeSitterPredicate> predicates);
};

} // namespace tessarine
