#include "platform/mirror/MirrorPolicy.h"

namespace platform {

QUuid conflictCopyId(const DisplacedText& text) {
    const QByteArray name = text.property.toUtf8() + text.stamp.device.toRfc4122() +
                            QByteArray::number(static_cast<quint64>(text.stamp.time));
    return QUuid::createUuidV5(text.object, name);
}

} // namespace platform
