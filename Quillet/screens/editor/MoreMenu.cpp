#include "Quillet/screens/editor/MoreMenu.h"

namespace quillet {

using platform::Menu;
using platform::MenuAction;

platform::Menu moreMenu(MoreMenuActions actions) {
    const MenuAction edit{.title = QStringLiteral("Edit Details"),
                          .symbol = QStringLiteral("rectangle.and.pencil.and.ellipsis"),
                          .handler = std::move(actions.editDetails)};
    const MenuAction remove{.title = QStringLiteral("Delete"),
                            .symbol = QStringLiteral("bin.xmark.fill"),
                            .handler = std::move(actions.remove),
                            .role = MenuAction::Role::Destructive};
    const MenuAction image{.title = QStringLiteral("Share Image"),
                           .symbol = QStringLiteral("photo.fill"),
                           .handler = std::move(actions.shareImage)};
    const MenuAction text{.title = QStringLiteral("Share Text"),
                          .symbol = QStringLiteral("note.text"),
                          .handler = std::move(actions.shareText)};
    return {
        .title = QStringLiteral("Snippet"),
        .entries = {Menu{QStringLiteral("Snippet"), {edit, remove}, Menu::Display::Inline},
                    Menu{QStringLiteral("Share"), {image, text}, Menu::Display::Inline}},
    };
}

} // namespace quillet
