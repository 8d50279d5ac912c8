#pragma once

#include <QtCore/QCborValue>
#include <QtCore/QString>

#include <optional>

namespace platform {

// How a text is written as Register::value: as a text string, or as a byte string of generalized UTF-8 where
// isPlainText() says that ordinary storage would alter it (lone surrogates, NUL and the like).
QCborValue textValue(const QString& text);

// An absent value is the empty text. Nothing where the value is no text.
std::optional<QString> textOf(const QCborValue& value);

} // namespace platform
