#include "Quillet/controls/SnippetNavigationController.h"

#include "platform/screens/controllers/NavigationBar.h"

namespace quillet {

void SnippetNavigationController::viewDidLoad() {
    NavigationController::viewDidLoad();
    navigationBar().setAppearance({.background = platform::Asset::BackgroundGrey,
                                   .tint = platform::Asset::Accent,
                                   .title = platform::Asset::Text,
                                   .shadow = platform::NavigationBar::Appearance::Shadow::None});
}

} // namespace quillet
