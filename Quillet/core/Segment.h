#pragma once

#include "platform/store/ManagedObject.h"

#include <QtCore/QDateTime>

#include <optional>

namespace quillet {

class Snippet;

// The title of a segment that keeps a text which lost against another one, written at `written`.
QString conflictTitle(const QDateTime& written);

// A further named text of a snippet. Main thread.
class Segment : public platform::ManagedObject {
public:
    enum Attribute : qsizetype { Code, CreationDate, Title };

    enum Relationship : qsizetype { OfSnippet };

    // Detached, created at this moment.
    Segment();

    // A text that could not be merged into one of `snippet` becomes a segment beside it, in the snippet's
    // context; not saved.
    static void keepConflicting(Snippet& snippet, const QString& text);
    // What a text of `snippet` becomes that was typed here while another was stored by somebody else, both
    // made from `base`: the lines of both. Where they are in each other's way what was typed stays, and the
    // stored one is kept as above.
    static QString mergeTyped(Snippet& snippet, const QString& base, const QString& stored,
                              const QString& typed);

    QString title() const { return value(Title).toString(); }

    void setTitle(const QString& title) { setValue(Title, title); }

    // Read from the store when asked for.
    QString code() const { return value(Code).toString(); }

    // For who may write the text back: an error where the store cannot be read.
    platform::StoreResult<QString> readCode() const;

    void setCode(const QString& code) { setValue(Code, code); }

    // Null once the snippet is gone.
    Snippet* snippet() const;

    std::optional<QDateTime> creationDate() const {
        return value(CreationDate).isNull() ? std::nullopt : std::optional(value(CreationDate).toDateTime());
    }
};

} // namespace quillet
