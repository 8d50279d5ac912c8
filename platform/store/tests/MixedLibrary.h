#pragma once

#include "platform/store/tests/ShelfModel.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace shelf {

// All objects, values and relations as text, a line an object; equal libraries give equal text.
QByteArray dump(platform::ManagedObjectContext& context);

// The dump of the store at `path`, opened anew; the reason where it cannot be opened.
QByteArray storedDump(const QString& path);

// Puts in books on shelves with authors and notes. Rows of every third book need overflow pages.
void fill(Library& library, int books);

// Changes a filled library of ten books or more in every way: inserts, edits, deletions, relations; some rows
// get overflow pages, others lose them.
void edit(Library& library);

QByteArray bytesOf(const QString& path);

// Makes the store one of the first version of the file.
void makeFirstVersion(const QString& path);

// Makes the file hold these bytes, with no journal beside it. Fails the test where it cannot.
void putFile(const QString& path, const QByteArray& bytes);

} // namespace shelf
