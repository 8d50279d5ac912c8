#include "Quillet/controls/QuilletNavigationBar.h"

namespace quillet {

const platform::NavigationBar::Appearance& QuilletNavigationBar::programAppearance() {
    static const Appearance appearance{.background = platform::Asset::BackgroundGrey,
                                       .tint = platform::Asset::Accent,
                                       .title = platform::Asset::Text,
                                       .shadow = Appearance::Shadow::None};
    return appearance;
}

QuilletNavigationBar::QuilletNavigationBar(QWidget* parent)
    : NavigationBar(parent) {
    setAppearance(programAppearance());
}

} // namespace quillet
