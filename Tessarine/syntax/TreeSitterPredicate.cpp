#include "Tessarine/syntax/TreeSitterPredicate.h"

namespace tessarine {

std::string TreeSitterPredicate::debugDescription() const {
    std::string text = "[TreeSitterPredicate name=" + name + " steps=[";
    for (std::size_t i = 0; i < steps.size(); ++i)
        text += (i == 0 ? "" : ", ") + tessarine::debugDescription(steps[i]);
    return text + "]]";
}

std::string debugDescription(const TreeSitterPredicate::Step& step) {
    if (const auto* capture = std::get_if<TreeSitterPredicate::Capture>(&step))
        return "[TreeSitterPredicate.Step capture=" + std::to_string(capture->index) + "]";
    return "[TreeSitterPredicate.Step string=" + std::get<std::string>(step) + "]";
}

} // namespace tessarine
