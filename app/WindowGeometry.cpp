#include "app/WindowGeometry.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSaveFile>

#include <algorithm>

namespace quillet {

namespace {

constexpr qint64 mostBytes = 4096;
constexpr int farthest = 100'000; // points; what is told beyond is damage
constexpr QSize leastGrip(120, 30);

const QString xKey = QStringLiteral("x");
const QString yKey = QStringLiteral("y");
const QString widthKey = QStringLiteral("width");
const QString heightKey = QStringLiteral("height");
const QString maximizedKey = QStringLiteral("maximized");
const QString primaryWidthKey = QStringLiteral("primaryWidth");

// None for what is no whole number in range.
std::optional<int> numberOf(const QJsonObject& object, const QString& key, int least) {
    constexpr int missing = -farthest - 1;
    const int number = object.value(key).toInt(missing);
    return number < least || number > farthest ? std::nullopt : std::optional(number);
}

// The part of the window by which it is taken and moved.
QRect titleBar(const QRect& window) {
    return {window.left(), window.top(), window.width(), leastGrip.height()};
}

bool canBeTaken(const QRect& window, const QRect& screen) {
    const QRect grip = titleBar(window) & screen;
    return grip.width() >= std::min(leastGrip.width(), window.width()) && grip.height() >= leastGrip.height();
}

QRect within(QRect window, const QRect& screen) {
    window.setSize(window.size().boundedTo(screen.size()));
    return window;
}

} // namespace

WindowGeometry WindowGeometry::broughtBack(const QList<QRect>& screens) const {
    WindowGeometry back = *this;
    const auto on =
        std::ranges::find_if(screens, [&](const QRect& screen) { return canBeTaken(normal, screen); });
    if (on != screens.end()) {
        back.normal = within(normal, *on);
    } else if (!screens.isEmpty()) {
        back.normal = within(normal, screens.first());
        back.normal.moveCenter(screens.first().center());
    }
    return back;
}

// As the base directories are told; the toolkit does not know this one yet. A relative path counts as none.
QString windowGeometryPath() {
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(state)) state = QDir::home().filePath(QStringLiteral(".local/state"));
    return QDir(state).filePath(QStringLiteral("Quillet/Window.json"));
}

std::optional<WindowGeometry> readWindowGeometry(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(file.read(mostBytes)).object();
    const auto x = numberOf(object, xKey, -farthest);
    const auto y = numberOf(object, yKey, -farthest);
    const auto width = numberOf(object, widthKey, 1);
    const auto height = numberOf(object, heightKey, 1);
    const auto primaryWidth = numberOf(object, primaryWidthKey, 1);
    if (!x || !y || !width || !height || !primaryWidth) return std::nullopt;
    return WindowGeometry{{*x, *y, *width, *height}, object.value(maximizedKey).toBool(), *primaryWidth};
}

void writeWindowGeometry(const QString& path, const WindowGeometry& geometry) {
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QFile::WriteOnly)) return;
    file.write(QJsonDocument(QJsonObject{{xKey, geometry.normal.x()},
                                         {yKey, geometry.normal.y()},
                                         {widthKey, geometry.normal.width()},
                                         {heightKey, geometry.normal.height()},
                                         {maximizedKey, geometry.isMaximized},
                                         {primaryWidthKey, geometry.primaryWidth}})
                   .toJson(QJsonDocument::Compact));
    file.commit();
}

} // namespace quillet
