#include "app/DesktopApplication.h"

#include <utility>

namespace quillet {

namespace {

// The object's path is the name with slashes, as the specification says.
const QString service = QStringLiteral("app.quillet.Quillet");
const QString path = QStringLiteral("/app/quillet/Quillet");

} // namespace

DesktopApplication::DesktopApplication(std::function<void()> onActivate, const QDBusConnection& bus)
    : m_onActivate(std::move(onActivate))
    , m_bus(bus) {
    // The object first: messages come as soon as the name is there.
    if (m_bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots))
        m_bus.registerService(service);
}

DesktopApplication::~DesktopApplication() {
    m_bus.unregisterService(service);
    m_bus.unregisterObject(path);
}

void DesktopApplication::Activate(const QVariantMap& /*platformData*/) {
    m_onActivate();
}

void DesktopApplication::Open(const QStringList& /*uris*/, const QVariantMap& /*platformData*/) {
    refuse();
}

void DesktopApplication::ActivateAction(const QString& /*name*/, const QVariantList& /*parameters*/,
                                        const QVariantMap& /*platformData*/) {
    refuse();
}

void DesktopApplication::refuse() {
    if (calledFromDBus())
        sendErrorReply(QDBusError::NotSupported, QStringLiteral("Quillet has no files or actions to open."));
}

} // namespace quillet
