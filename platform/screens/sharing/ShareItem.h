#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <variant>

namespace platform {

// A text or a picture to be given to somebody.
struct ShareItem {
    std::variant<QString, QImage> content;
    QString name;   // what it is called, in any characters
    QString suffix; // of a file of the text, such as "swift"; a picture's is "png"

    // Null for a picture.
    const QString* text() const { return std::get_if<QString>(&content); }

    // Null for a text.
    const QImage* image() const { return std::get_if<QImage>(&content); }

    // Of the name: no hidden file and no path, short enough for any file system.
    QString fileName() const;
};

} // namespace platform
