#pragma once

#include "platform/store/FetchedResultsController.h"
#include "platform/store/tests/FaultVfs.h"
#include "platform/store/tests/MixedLibrary.h"

#include <QtCore/QRandomGenerator>

#include <map>
#include <set>

namespace shelf {

// One of several libraries on one file. Edits at random, remembers what no save has written yet, and fails
// the test where a save or a merge breaks a promise about that.
class MergingPeer {
public:
    MergingPeer(QString path, QString name, QRandomGenerator& random, FaultVfs& vfs);

    // Puts in a book on a shelf with an author and a note.
    void fill();
    void edit();
    // Saves, and expects that to work.
    void save();
    // Saves while another connection reads or writes, or where the commit is made and reported as failed.
    void saveInVain();
    void merge();
    // Without what no save has written.
    void reopen();

    // Fails the test where the ends of a relation differ.
    void checkSymmetry() const;

    bool hasChanges() const { return m_library->context.hasChanges(); }

    QByteArray dump() { return shelf::dump(m_library->context); }

    // Every book's cover begins with it.
    static QByteArray coverOf(const platform::ManagedObject& book) { return book.objectID().toRfc4122(); }

    // Every title and name begins with it; unique, so that picking one does not depend on random identities.
    static QString labelOf(const platform::ManagedObject& object);

    // Fails the test where a book has lost its cover, which tells that it was written anew without being
    // whole.
    void checkCovers() const;

private:
    using Object = std::shared_ptr<platform::ManagedObject>;

    using Column = std::pair<QUuid, qsizetype>; // of an object, numbered as in ColumnSet

    Object pick(const char* entity);
    Object find(const QUuid& id) const;
    Object make(const char* entity);
    void setSomeValue();
    // Puts the child into the parent or, with none, out of its own; from either end.
    void moveChild(const Object& child, qsizetype toParent, const Object& parent, qsizetype toChildren);
    void flipAuthorship();
    void deleteSomething();
    void bringBackSomething();
    void setValue(platform::ManagedObject& object, qsizetype attribute, const QVariant& value);
    void noteColumn(const platform::ManagedObject& object, qsizetype column, const QVariant& value,
                    const platform::ManagedObject* target);
    void forgetTheDead();
    void forgetWhatIsStored();

    // Runs a save or a merge, and compares what was promised.
    enum class Outcome { Written, Failed, Merged };
    void watch(const std::function<Outcome()>& action);
    void checkPending() const;
    QByteArray bookLines() const;

    QString m_path;
    QString m_name;
    QRandomGenerator* m_random;
    FaultVfs* m_vfs;
    std::unique_ptr<Library> m_library;
    std::unique_ptr<platform::FetchedResultsController> m_books;
    int m_bookEvents = 0;
    QByteArray m_publishedLines; // of the books, as of the latest event
    int m_counter = 0;           // of the objects it made

    // What no save has written yet. A to-one relationship holds the identity of its target, null for none.
    std::map<Column, QVariant> m_columns;
    std::map<std::pair<QUuid, QUuid>, bool> m_authorships; // author and book; whether they belong together
    std::vector<Object> m_deleted;
    std::set<QUuid> m_broughtBack; // their memberships of before may be as stored
    bool m_wasTried = false;       // by a save that failed
};

} // namespace shelf
