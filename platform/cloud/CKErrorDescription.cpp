#include "platform/cloud/CKErrorDescription.h"

namespace platform {

namespace {

QString nameOf(CKError::Code code) {
    switch (code) {
    case CKError::Code::InternalError:
        return QStringLiteral("internalError");
    case CKError::Code::NetworkUnavailable:
        return QStringLiteral("networkUnavailable");
    case CKError::Code::NetworkFailure:
        return QStringLiteral("networkFailure");
    case CKError::Code::ServiceUnavailable:
        return QStringLiteral("serviceUnavailable");
    case CKError::Code::RequestRateLimited:
        return QStringLiteral("requestRateLimited");
    case CKError::Code::NotAuthenticated:
        return QStringLiteral("notAuthenticated");
    case CKError::Code::PermissionFailure:
        return QStringLiteral("permissionFailure");
    case CKError::Code::UnknownItem:
        return QStringLiteral("unknownItem");
    case CKError::Code::InvalidArguments:
        return QStringLiteral("invalidArguments");
    case CKError::Code::IncompatibleVersion:
        return QStringLiteral("incompatibleVersion");
    case CKError::Code::QuotaExceeded:
        return QStringLiteral("quotaExceeded");
    case CKError::Code::ZoneNotFound:
        return QStringLiteral("zoneNotFound");
    }
    return QStringLiteral("unknown");
}

} // namespace

QString descriptionOf(const CKError& error) {
    return QStringLiteral("%1 (%2) %3")
        .arg(QString::number(static_cast<int>(error.code)), nameOf(error.code), error.message);
}

} // namespace platform
