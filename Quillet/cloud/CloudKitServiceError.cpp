#include "Quillet/cloud/CloudKitServiceError.h"

#include "platform/cloud/CKErrorDescription.h"

namespace quillet {

using Case = CloudKitServiceError::Case;
using Code = platform::CKError::Code;

namespace {

QString nameOf(Case kind) {
    switch (kind) {
    case Case::generic:
        return QStringLiteral("generic");
    case Case::unauthenticated:
        return QStringLiteral("unauthenticated");
    case Case::rateLimited:
        return QStringLiteral("rateLimited");
    case Case::databaseFailure:
        return QStringLiteral("databaseFailure");
    case Case::networkFailure:
        return QStringLiteral("networkFailure");
    case Case::badLocal:
        return QStringLiteral("badLocal");
    }
    return QString();
}

} // namespace

CloudKitServiceError CloudKitServiceError::from(const platform::CKError& error) {
    switch (error.code) {
    case Code::NetworkUnavailable:
    case Code::NetworkFailure:
        return {Case::networkFailure, std::nullopt};
    case Code::RequestRateLimited:
        return {Case::rateLimited, std::nullopt};
    case Code::NotAuthenticated:
        return {Case::unauthenticated, std::nullopt};
    default:
        return {Case::generic, error};
    }
}

QString descriptionOf(const CloudKitServiceError& error) {
    const QString name = nameOf(error.kind);
    return error.error ? QStringLiteral("%1: %2").arg(name, platform::descriptionOf(*error.error)) : name;
}

} // namespace quillet
