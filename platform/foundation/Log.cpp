#include "platform/foundation/Log.h"

#include <cstdio>

namespace platform {

void logLine(const QString& text) {
    const QByteArray line = text.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

} // namespace platform
