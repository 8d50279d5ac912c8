#include "examples/editor/window/EditorLook.h"

#include "Tessarine/theme/DefaultTheme.h"
#include "Tessarine/view/QtConversions.h"
#include "examples/editor/window/ZoomedTheme.h"
#include "themes/onedark/OneDarkTheme.h"
#include "themes/plaintext/PlainTextTheme.h"
#include "themes/tomorrow/TomorrowTheme.h"
#include "themes/tomorrownight/TomorrowNightTheme.h"

#include <QtGui/QGuiApplication>

namespace tessarine::editor {

namespace {

struct NamedTheme {
    ThemeName name;
    std::shared_ptr<const themes::EditorTheme> theme;
};

const std::vector<NamedTheme>& namedThemes() {
    static const std::vector<NamedTheme> all{
        {{QStringLiteral("tomorrow"), QStringLiteral("Tomorrow")}, std::make_shared<themes::TomorrowTheme>()},
        {{QStringLiteral("tomorrownight"), QStringLiteral("Tomorrow Night")},
         std::make_shared<themes::TomorrowNightTheme>()},
        {{QStringLiteral("onedark"), QStringLiteral("One Dark")}, std::make_shared<themes::OneDarkTheme>()},
        {{QStringLiteral("plaintext"), QStringLiteral("Plain Text")},
         std::make_shared<themes::PlainTextTheme>()}};
    return all;
}

QColor mixed(const QColor& a, const QColor& b, float share) {
    const auto channel = [share](float from, float to) { return from + (to - from) * share; };
    return QColor::fromRgbF(channel(a.redF(), b.redF()), channel(a.greenF(), b.greenF()),
                            channel(a.blueF(), b.blueF()));
}

// All shades between the theme's background and its text.
QPalette paletteOf(const QColor& background, const QColor& text, const QColor& accent) {
    QPalette palette(mixed(background, text, 0.1F), mixed(background, text, 0.06F));
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::AlternateBase, mixed(background, text, 0.04F));
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::PlaceholderText, mixed(background, text, 0.55F));
    palette.setColor(QPalette::ToolTipBase, mixed(background, text, 0.1F));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, mixed(background, text, 0.45F));
    return palette;
}

EditorLook look(std::shared_ptr<const Theme> theme, const Color& background, UserInterfaceStyle style,
                int zoomPoints) {
    const bool isDark = style == UserInterfaceStyle::Dark;
    const QColor accent(isDark ? 0x3D74C7 : 0x2A62B8);
    const QColor base = toQt(background.resolved(style));
    const QColor text = toQt(theme->textColor().resolved(style));
    return {.theme = std::make_shared<ZoomedTheme>(std::move(theme), zoomPoints),
            .palette = paletteOf(base, text, accent),
            .backgroundColor = background,
            .selectionColor = Color(RGBAColor::ofHex(isDark ? 0x4F8DE8 : 0x3D7BDB, isDark ? 0.38F : 0.25F)),
            .matchColor = Color(RGBAColor::ofHex(isDark ? 0xE8B339 : 0xFFC83D, isDark ? 0.32F : 0.45F)),
            .style = style};
}

UserInterfaceStyle desktopStyle() {
    const bool isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    return isDark ? UserInterfaceStyle::Dark : UserInterfaceStyle::Light;
}

} // namespace

const std::vector<ThemeName>& themeNames() {
    static const std::vector<ThemeName> all = [] {
        std::vector<ThemeName> names{{QStringLiteral("default"), QStringLiteral("Default")}};
        for (const NamedTheme& theme : namedThemes())
            names.push_back(theme.name);
        return names;
    }();
    return all;
}

EditorLook editorLook(const QString& themeId, int zoomPoints) {
    for (const NamedTheme& each : namedThemes())
        if (each.name.id == themeId)
            return look(each.theme, each.theme->backgroundColor(), each.theme->userInterfaceStyle(),
                        zoomPoints);
    return look(std::make_shared<DefaultTheme>(), semanticColors::systemBackground, desktopStyle(),
                zoomPoints);
}

} // namespace tessarine::editor
