#pragma once

#include "platform/foundation/Observable.h"
#include "platform/screens/appearance/Palette.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusVariant>

namespace platform {

// Light or dark, as the desktop portal's setting org.freedesktop.appearance color-scheme says; light where no
// portal answers. Follows the setting while the program runs. Main thread.
class DesktopAppearance : public QObject {
    Q_OBJECT

public:
    static DesktopAppearance& shared();

    DesktopAppearance();

    Appearance appearance() const { return m_appearance.value(); }

    Observable<Appearance>& changes() { return m_appearance; }

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();

    Observable<Appearance> m_appearance{Appearance::Light};
};

} // namespace platform
