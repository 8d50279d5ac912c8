// Pictures of the editor in each theme: editor_gallery FOLDER FILE....
#include "Tessarine/textview/TextView.h"
#include "examples/editor/find/FindSession.h"
#include "examples/editor/window/EditorPage.h"
#include "examples/editor/window/EditorWindow.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

#include <cstdlib>

using namespace tessarine;
using namespace tessarine::editor;

namespace {

// What comes from other threads and from timers is on the picture.
void settle(EditorPage& page) {
    constexpr qint64 enough = 400; // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (page.file().isLoading() || timer.elapsed() < enough)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

bool grab(EditorWindow& window, const QString& path) {
    settle(*window.currentPage());
    return window.grab().save(path);
}

void selectSome(EditorPage& page) {
    const std::int64_t length = page.textView().document().stringView->length();
    page.textView().setSelectedRange(TextRange{length / 12, std::min<std::int64_t>(90, length / 12)});
    page.setFocus();
}

bool drawTheme(const ThemeName& theme, const QString& folder, const QStringList& files) {
    EditorServices services;
    services.settings.setViewOptions({theme.id, 0, true, false, false, false});
    EditorWindow window(services);
    window.resize(1100, 760);
    window.show();
    bool isDrawn = true;
    for (const QString& file : files) {
        window.openFile(file);
        settle(*window.currentPage());
        selectSome(*window.currentPage());
        isDrawn =
            grab(window, QStringLiteral("%1/%2-%3.png").arg(folder, theme.id, QFileInfo(file).suffix())) &&
            isDrawn;
    }
    TextView& text = window.currentPage()->textView();
    const auto word = text.text().find(u"the ");
    text.movement().selectWordAt(static_cast<std::int64_t>(word));
    services.settings.setViewOptions({theme.id, 2, true, true, true, true});
    window.currentPage()->find().open(true);
    return grab(window, QStringLiteral("%1/%2-find.png").arg(folder, theme.id)) && isDrawn;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QStringList arguments = QApplication::arguments();
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    if (arguments.size() < 3 || !QDir().mkpath(arguments[1])) return EXIT_FAILURE;
    bool isDrawn = true;
    for (const ThemeName& theme : themeNames())
        isDrawn = drawTheme(theme, arguments[1], arguments.mid(2)) && isDrawn;
    return isDrawn ? EXIT_SUCCESS : EXIT_FAILURE;
}
