#pragma once

#include "platform/foundation/Observable.h"
#include "platform/screens/appearance/Palette.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVariant>

#include <optional>

namespace platform {

// What the desktop portal says of the user's wishes, followed while the program runs; light and with motion
// where no portal answers. Main thread.
class DesktopSettings : public QObject {
    Q_OBJECT

public:
    // On the session's bus.
    static DesktopSettings& shared();

    // Waits for the portal's first answers, so that the first window has its colours at once.
    explicit DesktopSettings(QDBusConnection bus);

    // org.freedesktop.appearance color-scheme.
    Appearance appearance() const { return m_appearance.value(); }

    Observable<Appearance>& appearanceChanges() { return m_appearance; }

    // org.freedesktop.appearance reduced-motion; of a portal that does not know it
    // org.gnome.desktop.interface enable-animations.
    bool reducesMotion() const;

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void take(const QString& group, const QString& key, const QVariant& value);

    QDBusConnection m_bus;
    Observable<Appearance> m_appearance{Appearance::Light};
    std::optional<bool> m_reducedMotion;
    std::optional<bool> m_animations;
};

} // namespace platform
