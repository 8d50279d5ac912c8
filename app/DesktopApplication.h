#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>

#include <functional>

namespace quillet {

// The program's name in all that a desktop knows of it.
inline constexpr char desktopName[] = "app.quillet.Quillet";

// The program as the desktop knows it: started, or brought to the front, by a message of the session bus
// (org.freedesktop.Application, of the Desktop Entry Specification). Where there is no bus, or another
// program has the name, the program runs without; SingleInstance alone says which one runs. Main thread.
class DesktopApplication : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // `onActivate` is called for a message.
    explicit DesktopApplication(std::function<void()> onActivate,
                                const QDBusConnection& bus = QDBusConnection::sessionBus());
    ~DesktopApplication() override;

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    // The program opens no files and has no actions of its own.
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameters,
                                     const QVariantMap& platformData);

private:
    void refuse();

    std::function<void()> m_onActivate;
    QDBusConnection m_bus;
};

} // namespace quillet
