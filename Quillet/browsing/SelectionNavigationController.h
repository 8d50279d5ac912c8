#pragma once

#include "Quillet/browsing/SelectionView.h"
#include "Quillet/controls/SnippetNavigationController.h"

namespace quillet {

// Carries a sheet of tags or folders. Escape, and a press beside it, go back from its form, and leave
// the sheet as its own button does. Main
// thread.
class SelectionNavigationController : public SnippetNavigationController {
    Q_OBJECT

public:
    // Shows the sheet over `presenter`. `beforeClosing` runs when the user is done, before the sheet goes.
    static void presentSheet(platform::ViewController& presenter, std::unique_ptr<SelectionView> view,
                             const std::function<void()>& beforeClosing = {});

    void cancelPresentation() override;

private:
    explicit SelectionNavigationController(std::unique_ptr<SelectionView> view);

    SelectionView* m_view;
};

} // namespace quillet
