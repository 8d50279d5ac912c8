#pragma once

#include "platform/store/ManagedObject.h"

#include <QtCore/QDateTime>

namespace quillet {

// A plain named group of snippets. Equal titles are allowed: identity is the id. Main thread.
class Folder : public platform::ManagedObject {
public:
    enum Attribute : qsizetype { Id, Title, CreatedDate };

    enum Relationship : qsizetype { Snippets };

    // Detached, with nothing set.
    Folder();

    // In the view context of the shared stack, with a fresh id; not saved. The date is dropped on purpose: no
    // order depends on it, and createdDate stays absent.
    static std::shared_ptr<Folder> create(const QString& title, const QDateTime& date);

    QUuid id() const { return value(Id).toUuid(); }

    QString title() const { return value(Title).toString(); }
};

} // namespace quillet
