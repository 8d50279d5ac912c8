#include "platform/screens/sharing/SavePanel.h"

#include "platform/screens/sharing/PortalRequest.h"

#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QFileDialog>

namespace platform {

namespace {

using Chosen = std::function<void(const QString&)>;
using Outcome = PortalRequest::Outcome;

const QString title = QStringLiteral("Save As");

// The window as the portal names it; empty where it has no name for it.
QString portalName(const QWidget& window) {
    if (QGuiApplication::platformName() != QStringLiteral("xcb")) return {};
    return QStringLiteral("x11:%1").arg(window.winId(), 0, 16);
}

void showDialog(QWidget& window, const QString& fileName, const Chosen& chosen) {
    auto* dialog = new QFileDialog(&window, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->setDefaultSuffix(QFileInfo(fileName).suffix());
    dialog->selectFile(fileName);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, chosen);
    dialog->open();
}

} // namespace

void askWhereToSave(QWidget& window, const QString& fileName, std::function<void(const QString&)> chosen) {
    const auto answer = [window = QPointer(&window), fileName,
                         chosen = std::move(chosen)](Outcome outcome, const QVariantMap& results) {
        if (outcome == Outcome::Done)
            chosen(QUrl(results[QStringLiteral("uris")].toStringList().value(0)).toLocalFile());
        else if (outcome == Outcome::Unavailable && window)
            showDialog(*window, fileName, chosen);
    };
    PortalRequest::send(QDBusConnection::sessionBus(),
                        {.interface = QStringLiteral("FileChooser"),
                         .method = QStringLiteral("SaveFile"),
                         .arguments = {portalName(window), title},
                         .options = {{QStringLiteral("current_name"), fileName}}},
                        answer);
}

} // namespace platform
