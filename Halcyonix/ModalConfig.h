#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QString>

#include <optional>
#include <vector>

namespace halcyonix {

enum class ModalPosition { Bottom, Middle };

// One line of a modal card's list. The image is drawn in the colour of icons.
struct ModalItem {
    std::optional<QString> imageName = std::nullopt;
    std::optional<QString> body = std::nullopt;
};

struct ModalButtonConfig {
    std::optional<QString> text = std::nullopt;
};

// What a modal card says. An image of the program's own goes before a symbol.
struct ModalConfig {
    platform::Asset accentColor = platform::Asset::Accent;
    QString title;
    std::optional<QString> imageName = std::nullopt;
    std::optional<QString> systemImageName = std::nullopt;
    std::optional<QString> body = std::nullopt;
    std::vector<ModalItem> items = {};
    std::optional<ModalButtonConfig> buttonConfig = std::nullopt;
    ModalPosition position = ModalPosition::Middle;
};

} // namespace halcyonix
