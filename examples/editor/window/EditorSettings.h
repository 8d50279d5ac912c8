#pragma once

#include <QtCore/QObject>
#include <QtCore/QSettings>

namespace tessarine::editor {

// How texts are shown, in all tabs alike.
struct ViewOptions {
    QString theme;
    int zoom = 0; // points that texts are larger than the theme's
    bool showLineNumbers = true;
    bool showInvisibles = false;
    bool wrapLines = false;
    bool showPageGuide = false;

    friend bool operator==(const ViewOptions&, const ViewOptions&) = default;
};

// What the editor remembers from one start to the next: a file under the user's configuration folder.
// Main thread.
class EditorSettings : public QObject {
    Q_OBJECT

public:
    EditorSettings();

    const ViewOptions& viewOptions() const { return m_viewOptions; }

    void setViewOptions(const ViewOptions& options);

    // The latest first.
    QStringList recentFiles() const;
    void addRecentFile(const QString& path);

    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray& geometry);

Q_SIGNALS:
    void viewOptionsChanged();

private:
    ViewOptions readViewOptions() const;

    QSettings m_settings;
    ViewOptions m_viewOptions;
};

} // namespace tessarine::editor
