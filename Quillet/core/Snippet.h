#pragma once

#include "Quillet/core/CKManagedObject.h"
#include "platform/store/ManagedObject.h"

#include <QtCore/QDateTime>

#include <optional>

namespace quillet {

class Folder;
class Segment;
class Tag;

// One stored piece of code with its metadata. Main thread.
class Snippet : public platform::ManagedObject {
public:
    enum Attribute : qsizetype { Id, Name, LastUpdate, Title, Notes, Code, Language };

    enum Relationship : qsizetype { InFolder, Tags, Segments };

    // Detached, with nothing set.
    Snippet();

    // In the view context of the shared stack; not saved.
    static std::shared_ptr<Snippet> create(const QString& title, const std::optional<QString>& notes,
                                           const QString& code, const QString& language);

    static QString recordType() { return QStringLiteral("Snippet"); }

    // Absent; the older cloud layout has a place for it.
    std::optional<QByteArray> id() const;
    void setId(const std::optional<QByteArray>& id);

    // Absent but on snippets of the older cloud layout. Never shown; what users see is the title.
    std::optional<QString> name() const;
    void setName(const std::optional<QString>& name);

    QString title() const { return value(Title).toString(); }

    void setTitle(const QString& title) { setValue(Title, title); }

    QString notes() const { return value(Notes).toString(); }

    void setNotes(const std::optional<QString>& notes) {
        setValue(Notes, notes ? QVariant(*notes) : QVariant());
    }

    // Read from the store when asked for; empty as well where that fails, see readCode().
    QString code() const { return value(Code).toString(); }

    // For who may write the text back: an error where the store cannot be read.
    platform::StoreResult<QString> readCode() const;

    void setCode(const QString& code) { setValue(Code, code); }

    // The highlighter's name of the language; absent on some old snippets.
    std::optional<QString> language() const {
        return value(Language).isNull() ? std::nullopt : std::optional(value(Language).toString());
    }

    void setLanguage(const QString& language) { setValue(Language, language); }

    // Absent but on snippets of the older cloud layout.
    std::optional<QDateTime> lastUpdate() const {
        return value(LastUpdate).isNull() ? std::nullopt : std::optional(value(LastUpdate).toDateTime());
    }

    void setLastUpdate(const std::optional<QDateTime>& date);

    bool isRevision() const { return false; }

    // Nothing: a snippet reaches the cloud by the store's mirror and not as a record of its own.
    std::optional<platform::CKRecord> ckRecord() const { return std::nullopt; }

    // Takes over what the record has, but for the id. A field that is absent or of a wrong type leaves what
    // is there.
    void update(const platform::CKRecord& record);

    Folder* folder() const;

    // By creation date, ascending; a segment without one counts as created at this moment.
    std::vector<std::shared_ptr<Segment>> sortedSegments() const;
};

static_assert(CKManagedObject<Snippet>);

} // namespace quillet
