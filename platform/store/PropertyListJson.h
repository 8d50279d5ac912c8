#pragma once

#include <QtCore/QJsonValue>
#include <QtCore/QVariant>

namespace platform {

// Property lists as JSON that a person can read, and back without loss. JSON knows no dates, no data, and to
// our parser 1.0 is 1; so these become objects with one tagged entry:
//
//     {"$date": "2024-02-29T12:00:00.000Z"}    or the milliseconds since 1970, for years without four digits
//     {"$data": "AAEC"}                        base64
//     {"$real": "1"}                           floating numbers that are whole or not finite
//
// A dictionary whose only key begins with "$" gets one more "$" in front of that key, so none reads as a tag.
// A tag of another form, which only a foreign hand writes, reads as the dictionary that it looks like.

// Requires a property list.
QJsonValue jsonFromPropertyList(const QVariant& value);

QVariant propertyListFromJson(const QJsonValue& json);

// Whether two values are the same, types and all. No value at all is the same as null.
bool areSamePropertyLists(const QVariant& a, const QVariant& b);

} // namespace platform
