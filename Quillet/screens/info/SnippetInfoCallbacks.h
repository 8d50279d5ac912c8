#pragma once

#include <functional>
#include <memory>

namespace quillet {

class Segment;

// What the info panel asks for. A null segment stands for the snippet's own code.
struct SnippetInfoCallbacks {
    using OnSegment = std::function<void(const std::shared_ptr<Segment>&)>;

    std::function<void()> onEditTags;
    std::function<std::shared_ptr<Segment>()> onAddSegment; // null where none was made
    OnSegment onSelectSegment;
    OnSegment onDeleteSegment;
    OnSegment onRenameSegment;
};

} // namespace quillet
