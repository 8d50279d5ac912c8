#include "platform/cloud/SqlState.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

using Code = CKError::Code;

struct Meaning {
    std::string_view prefix;
    Code code;
};

// Whole states before the classes that they belong to.
constexpr std::array meanings = {
    Meaning{"40003", Code::NetworkFailure}, // nobody knows whether it was carried out
    Meaning{"40", Code::RequestRateLimited},
    Meaning{"55P03", Code::RequestRateLimited},
    Meaning{"08", Code::NetworkFailure},
    Meaning{"57P03", Code::ServiceUnavailable}, // it starts or stops
    Meaning{"57P", Code::NetworkFailure},       // it ends the connection
    Meaning{"26", Code::NetworkFailure},        // another connection than the one that prepared
    Meaning{"57014", Code::ServiceUnavailable}, // its own time limit
    Meaning{"28", Code::NotAuthenticated},
    Meaning{"42501", Code::PermissionFailure},
    Meaning{"42P01", Code::ServiceUnavailable}, // no schema
    Meaning{"25006", Code::ServiceUnavailable}, // a standby, which only reads
    Meaning{"3D000", Code::InvalidArguments},   // no such database
    Meaning{"53100", Code::QuotaExceeded},      // its disk is full
    Meaning{"53", Code::ServiceUnavailable},
    Meaning{"54", Code::QuotaExceeded},
    Meaning{"58", Code::ServiceUnavailable},
    Meaning{"21", Code::InvalidArguments},
    Meaning{"22", Code::InvalidArguments},
    Meaning{"23", Code::InvalidArguments},
    Meaning{"0A", Code::ServiceUnavailable},
};

} // namespace

CKError::Code codeOfSqlState(std::string_view state) {
    const auto* const found = std::ranges::find_if(
        meanings, [state](const Meaning& meaning) { return state.starts_with(meaning.prefix); });
    return found == meanings.end() ? Code::InternalError : found->code;
}

} // namespace platform
