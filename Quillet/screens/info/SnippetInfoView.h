#pragma once

#include "Quillet/screens/info/SnippetInfoCallbacks.h"
#include "Quillet/screens/info/SnippetInfoViewModel.h"
#include "platform/screens/controllers/SizeClass.h"
#include "platform/store/ManagedObjectContext.h"

#include <QtWidgets/QWidget>

#include <optional>

class QLabel;

namespace quillet {

class DisclosureToggle;
class SegmentCarouselView;
class TagCarouselView;

// The panel at the head of the editor: title, notes, tags and segments of a snippet, which it follows as they
// change. The two rows can be put away. Main thread.
class SnippetInfoView : public QWidget {
    Q_OBJECT

public:
    SnippetInfoView(std::shared_ptr<SnippetInfoViewModel> viewModel, SnippetInfoCallbacks callbacks,
                    QWidget* parent = nullptr);

    // Told when the panel comes up, and when the room of its window changes.
    std::function<void(platform::SizeClass)> onSizeClass;

    bool showTagsAndSegments() const { return m_showTagsAndSegments; }

    // Absent for the snippet's own code.
    const std::shared_ptr<Segment>& activeSegment() const;

    const SnippetInfoCallbacks& callbacks() const { return m_callbacks; }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void take(const std::shared_ptr<Snippet>& snippet);
    void refresh();
    void showRows();
    void tellSizeClass();

    std::shared_ptr<SnippetInfoViewModel> m_viewModel;
    SnippetInfoCallbacks m_callbacks;
    bool m_showTagsAndSegments = true;
    std::optional<platform::SizeClass> m_horizontalSizeClass;
    QLabel* m_title;
    QLabel* m_notes;
    DisclosureToggle* m_toggle;
    TagCarouselView* m_tags;
    SegmentCarouselView* m_segments;
    platform::Subscription m_snippets;
    platform::Subscription m_changes;
};

} // namespace quillet
