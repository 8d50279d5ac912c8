#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "platform/foundation/Log.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

namespace quillet {

// Points the shared instances of this process at fresh directories for data and state. Every test is a
// process of its own.
class TemporaryLibrary : public ::testing::Test {
protected:
    explicit TemporaryLibrary(const QString& parentFolder = QDir::tempPath())
        : root(parentFolder + QStringLiteral("/quillet-XXXXXX")) {
        qputenv("XDG_DATA_HOME", root.path().toUtf8());
        qputenv("XDG_STATE_HOME", root.filePath(QStringLiteral("state")).toUtf8());
    }

    // Runs what is queued for the main loop.
    static void turn() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static platform::ManagedObjectContext& context() { return CoreDataStack::shared().viewContext(); }

    template <typename T>
    static std::size_t count(platform::ManagedObjectContext& in = context()) {
        return in.fetch({T().entity().name, {}, {}, {}}).size();
    }

    QTemporaryDir root;
    QString directory = root.filePath(QStringLiteral("Quillet"));
    QString storePath = root.filePath(QStringLiteral("Quillet/Quillet.sqlite"));
};

} // namespace quillet
