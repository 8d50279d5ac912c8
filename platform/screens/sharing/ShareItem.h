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

    bool isImage() const { return std::holds_alternative<QImage>(content); }

    // Safe in any file system.
    QString fileName() const;
};

} // namespace platform
