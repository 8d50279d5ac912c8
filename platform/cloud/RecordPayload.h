#pragma once

#include "platform/cloud/CKRecord.h"

namespace platform {

// The fields of a record as the bytes that a server keeps: one CBOR map from key to value.
//
// Texts, byte strings, booleans and integers are CBOR's own; a date is tag 1 (seconds since 1970 UTC) on a
// floating point number, exact to the millisecond.

QByteArray encodePayload(const CKRecord::Fields& fields);

// Nothing where the bytes are no such map: cut short, with bytes behind the end, nested, with a key twice, of
// unknown length, or with another kind of value. Whatever the bytes, memory stays within a small multiple of
// their size.
std::optional<CKRecord::Fields> decodePayload(const QByteArray& bytes);

} // namespace platform
