#pragma once

#include <functional>

namespace tessarine::editor {

class EditorPage;

// Saving and closing, with the questions that come up. All return at once; the completion comes when the last
// question is answered and the file written, and not at all if the page is gone before. Main thread.

void savePage(EditorPage& page, const std::function<void(bool isSaved)>& completion);
void savePageAs(EditorPage& page, const std::function<void(bool isSaved)>& completion);

// Whether the page may go: it is not modified, was saved, or is to be discarded.
void askToClose(EditorPage& page, const std::function<void(bool mayClose)>& completion);

} // namespace tessarine::editor
