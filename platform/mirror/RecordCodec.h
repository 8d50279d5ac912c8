#pragma once

#include "platform/cloud/CloudStore.h"
#include "platform/mirror/ObjectState.h"

#include <optional>

namespace platform {

// The payload of a record: the state of one object, in CBOR (RFC 8949). Equal states have equal bytes. A map:
//
//   0  the number of the format, 1
//   1  the entity, text
//   2  the devices that wrote, 16 bytes each, in order, in one byte string
//   3  stamps, an array: device (an index into 2), time, device, time, ...; in order of time and device, each
//      time as its distance from the one before
//   4  registers, a map by property: [stamp (an index into 3), value], and of a merged text
//      [stamp, value, [seen, as stamps]]
//   5  sets, a map by relationship of maps by target (16 bytes): 2 * stamp + (1 for a member)
//   6  what the deletions have seen, an array of stamps; absent where there was none
//   7  the time of the latest deletion; absent where 0
//   8  the history, an array of stamps; absent where 4 and 5 alone make it
//
// Any other key is a newer program's and is carried as it is, behind these in order; so such a program raises
// the number only where that would not do. A value of more than 64 KB, text or bytes, is an asset of its own
// beside the record, and its place is taken by tag 28001 around the asset's hash.
constexpr qsizetype largestInlineValue = qsizetype{64} * 1024;

struct EncodedState {
    QByteArray payload;
    std::vector<CloudAsset> assets;
};

// Every register must have its value.
EncodedState encodeState(const ObjectState& state);

// Nothing where this program cannot read it: of a newer format, not of the form above, or with times that no
// correct device writes. Big values are references.
std::optional<ObjectState> decodeState(const QByteArray& payload);

// The hash, where `value` is a reference to an asset.
std::optional<QByteArray> referredAsset(const QCborValue& value);

// SHA-256 of the value with its kind, and the value compressed.
CloudAsset assetOf(const QCborValue& value);
// Nothing where the content is not what the hash says.
std::optional<QCborValue> valueOf(const CloudAsset& asset);

} // namespace platform
