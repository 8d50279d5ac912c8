#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace platform {

// UTF-8 that also carries lone surrogates, each as its own three-byte sequence. Any UTF-16 text goes there
// and comes back unchanged, which neither QString::toUtf8 nor SQLite's own conversion promises.

// Whether ordinary text storage keeps `text` exactly: well-formed UTF-16 without NUL, U+FFFE and U+FFFF, and
// without a byte order mark in front.
bool isPlainText(const QString& text);

QByteArray toGeneralizedUtf8(const QString& text);

// Bytes that are no sequence of this form become U+FFFD, one for each byte.
QString fromGeneralizedUtf8(const QByteArray& bytes);

} // namespace platform
