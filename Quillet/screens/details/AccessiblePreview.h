#pragma once

namespace quillet {

// From the first call on assistive tools see a HighlightrView as a picture, not as a field with a text.
void describePreviewsAsPictures();

} // namespace quillet
