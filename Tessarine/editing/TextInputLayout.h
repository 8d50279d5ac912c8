#pragma once

#include "Tessarine/base/Size.h"
#include "Tessarine/document/DocumentLineNodeID.h"
#include "Tessarine/document/LineSet.h"

namespace tessarine {

struct EditedDocument;

// What the road of an edit asks of the layout. Main thread.
class TextInputLayout {
public:
    TextInputLayout() = default;
    TextInputLayout(const TextInputLayout&) = delete;
    TextInputLayout& operator=(const TextInputLayout&) = delete;
    virtual ~TextInputLayout() = default;

    // From now on these objects are laid out; what is known of lines is of no use any more.
    virtual void setDocument(const EditedDocument& document) = 0;

    // In points. Drops the known size of the content.
    virtual void setTabWidth(double tabWidth) = 0;

    virtual void invalidateContentSize() = 0;

    // What is kept for a line that has left the document, or for all lines.
    virtual void removeLine(const DocumentLineNodeID& lineID) = 0;
    virtual void removeAllLines() = 0;

    // Their text has changed. Lines may be among them that have left the document meanwhile.
    virtual void typesetLines(const LineSet& lines) = 0;

    // Renews what depends on the number of lines.
    virtual void lineCountDidChange() = 0;

    virtual void setNeedsLayout() = 0;
    virtual void layoutIfNeeded() = 0;

    virtual Size contentSize() = 0;
};

} // namespace tessarine
