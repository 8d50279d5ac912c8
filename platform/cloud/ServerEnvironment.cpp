#include "platform/cloud/ServerEnvironment.h"

#include <QtCore/QByteArrayList>

#include <unistd.h>

namespace platform {

namespace {

bool isForeign(const QByteArray& name) {
    return name.startsWith("PG") && name != "PGSERVICEFILE" && name != "PGPASSFILE";
}

} // namespace

void unsetServerEnvironment() {
    QByteArrayList names;
    for (char* const* entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const QByteArray text(*entry);
        names += text.left(text.indexOf('='));
    }
    names.removeIf([](const QByteArray& name) { return !isForeign(name); });
    for (const QByteArray& name : names)
        qunsetenv(name.constData());
}

} // namespace platform
