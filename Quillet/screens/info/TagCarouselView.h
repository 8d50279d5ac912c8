#pragma once

#include "Quillet/core/Snippet.h"

#include <QtWidgets/QWidget>

#include <functional>
#include <vector>

namespace quillet {

class ChipRow;
class TagChip;

// A snippet's tags, in no order of their own, and the way to their sheet. Main thread.
class TagCarouselView : public QWidget {
    Q_OBJECT

public:
    explicit TagCarouselView(std::function<void()> onEditTags, QWidget* parent = nullptr);

    void setSnippet(std::shared_ptr<Snippet> snippet);

    // Takes on the snippet's tags of now; the scroll position stays.
    void refresh();

private:
    TagChip* chipOf(const std::shared_ptr<Tag>& tag);

    std::shared_ptr<Snippet> m_snippet;
    std::vector<TagChip*> m_chips;
    ChipRow* m_row;
};

} // namespace quillet
