#pragma once

#include "Quillet/screens/info/SnippetInfoCallbacks.h"
#include "Quillet/screens/info/SnippetInfoViewModel.h"
#include "platform/store/ManagedObjectContext.h"

#include <QtWidgets/QWidget>

namespace platform {
class BarTitle;
}

namespace quillet {

class DisclosureToggle;
class Drawer;
class NotesLabel;
class SegmentCarouselView;
class TagCarouselView;

// The panel at the head of the editor: title, notes, tags and segments of a snippet, which it follows as they
// change. The two rows can be put away. Main thread.
class SnippetInfoView : public QWidget {
    Q_OBJECT

public:
    SnippetInfoView(std::shared_ptr<SnippetInfoViewModel> viewModel, SnippetInfoCallbacks callbacks,
                    QWidget* parent = nullptr);

    bool showTagsAndSegments() const { return m_showTagsAndSegments; }

    // Absent for the snippet's own code, as after each new snippet.
    const std::shared_ptr<Segment>& activeSegment() const;

    const SnippetInfoCallbacks& callbacks() const { return m_callbacks; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void take(const std::shared_ptr<Snippet>& snippet);
    void follow();
    void showTexts();
    std::unique_ptr<QWidget> makeRows();

    std::shared_ptr<SnippetInfoViewModel> m_viewModel;
    SnippetInfoCallbacks m_callbacks;
    bool m_showTagsAndSegments = true;
    platform::BarTitle* m_title;
    NotesLabel* m_notes;
    DisclosureToggle* m_toggle;
    TagCarouselView* m_tags;
    SegmentCarouselView* m_segments;
    Drawer* m_rows; // holds the two
    platform::Subscription m_snippets;
    platform::Subscription m_changes;
};

} // namespace quillet
