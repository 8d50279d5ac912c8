#pragma once

#include "Quillet/core/Snippet.h"

#include <QtWidgets/QWidget>

#include <functional>

namespace quillet {

class ChipRow;

// A snippet's tags, in no order of their own, and the way to their sheet. Main thread.
class TagCarouselView : public QWidget {
    Q_OBJECT

public:
    explicit TagCarouselView(std::function<void()> onEditTags, QWidget* parent = nullptr);

    void setSnippet(std::shared_ptr<Snippet> snippet);

    // Takes on the snippet's tags of now.
    void refresh();

private:
    std::shared_ptr<Snippet> m_snippet;
    ChipRow* m_row;
};

} // namespace quillet
