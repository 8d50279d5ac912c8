#pragma once

#include "platform/store/ManagedObject.h"

#include <QtCore/QDateTime>

namespace quillet {

// A coloured label of snippets. Equal titles are allowed: identity is the id. Main thread.
class Tag : public platform::ManagedObject {
public:
    enum Attribute : qsizetype { Id, Title, CreatedDate, ColorIndex };

    enum Relationship : qsizetype { Snippets };

    // Detached, with nothing set.
    Tag();

    // In the view context of the shared stack, with a fresh id; not saved. The date is dropped on purpose: no
    // order depends on it, and createdDate stays absent.
    static std::shared_ptr<Tag> create(const QString& title, qint16 colorIndex, const QDateTime& date);

    QUuid id() const { return value(Id).toUuid(); }

    QString title() const { return value(Title).toString(); }

    // Index into the tag colour table.
    int colorIndex() const { return value(ColorIndex).toInt(); }
};

} // namespace quillet
