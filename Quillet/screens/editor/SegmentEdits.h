#pragma once

#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"

#include <memory>

namespace platform {
class ViewController;
}

// What is done with the segments of a snippet, beside showing them. Main thread.
namespace quillet {

// A segment named by the number of those that are there, saved. It has no text yet.
std::shared_ptr<Segment> addNewSegment(Snippet& snippet);

// Stops the program if the library cannot be saved.
void removeSegment(Snippet& snippet, Segment& segment);

// Asks for the name. Stops the program if the library cannot be saved then.
void askSegmentName(platform::ViewController& over, std::shared_ptr<Segment> segment);

} // namespace quillet
