#include "examples/editor/window/EditorSettings.h"

#include <algorithm>

namespace tessarine::editor {

namespace {

constexpr qsizetype recentLimit = 12;
constexpr int smallestZoom = -8;
constexpr int largestZoom = 40;

// A file of settings is written by people, too.
int inRange(int zoom) {
    return std::clamp(zoom, smallestZoom, largestZoom);
}

} // namespace

EditorSettings::EditorSettings()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tessarine"),
                 QStringLiteral("editor"))
    , m_viewOptions(readViewOptions()) {}

ViewOptions EditorSettings::readViewOptions() const {
    const auto flag = [this](const char* key, bool fallback) {
        return m_settings.value(QLatin1String(key), fallback).toBool();
    };
    const ViewOptions fallback;
    return {m_settings.value(QStringLiteral("view/theme")).toString(),
            inRange(m_settings.value(QStringLiteral("view/zoom")).toInt()),
            flag("view/lineNumbers", fallback.showLineNumbers),
            flag("view/invisibles", fallback.showInvisibles),
            flag("view/wrap", fallback.wrapLines),
            flag("view/pageGuide", fallback.showPageGuide)};
}

void EditorSettings::setViewOptions(const ViewOptions& options) {
    ViewOptions wanted = options;
    wanted.zoom = inRange(options.zoom);
    if (wanted == m_viewOptions) return;
    m_viewOptions = wanted;
    m_settings.setValue(QStringLiteral("view/theme"), wanted.theme);
    m_settings.setValue(QStringLiteral("view/zoom"), wanted.zoom);
    m_settings.setValue(QStringLiteral("view/lineNumbers"), wanted.showLineNumbers);
    m_settings.setValue(QStringLiteral("view/invisibles"), wanted.showInvisibles);
    m_settings.setValue(QStringLiteral("view/wrap"), wanted.wrapLines);
    m_settings.setValue(QStringLiteral("view/pageGuide"), wanted.showPageGuide);
    Q_EMIT viewOptionsChanged();
}

QStringList EditorSettings::recentFiles() const {
    return m_settings.value(QStringLiteral("recentFiles")).toStringList();
}

void EditorSettings::addRecentFile(const QString& path) {
    QStringList files = recentFiles();
    files.removeAll(path);
    files.prepend(path);
    m_settings.setValue(QStringLiteral("recentFiles"),
                        QStringList(files.first(std::min(recentLimit, files.size()))));
}

QByteArray EditorSettings::windowGeometry() const {
    return m_settings.value(QStringLiteral("window/geometry")).toByteArray();
}

void EditorSettings::setWindowGeometry(const QByteArray& geometry) {
    m_settings.setValue(QStringLiteral("window/geometry"), geometry);
}

} // namespace tessarine::editor
