#pragma once

#include "platform/store/ManagedObjectModel.h"

#include <QtCore/QStringList>

namespace platform {

// The tables of a model.
//
// One table an entity: "_id" (the object's UUID), "_rev" (the store's revision that wrote the row last), one
// column an attribute and one a to-one relationship. One join table a pair of to-many relationships; the end
// that comes first in the alphabet owns it, and a change of a membership counts as a change of the owner's
// row.
// "_Deleted" names the objects that are gone and the revision that removed them, "_Metadata" holds the model,
// its hash and version, and the revision: a counter that every transaction increments.
//
// The mirror's tables are empty where nothing mirrors the store. "_Mirror" has an entry for every object that
// is or was: its state (platform/mirror/ObjectState.h; attributes that are as in the object's row left out),
// whether it is dead by itself, its place in the outbox ("change", 0 outside), what is known of the server's
// record of it ("revision", "reading", "sent"), and, mostly absent, the bases of its changed texts and a
// record that could not be read. "_MirrorLinks" names, for objects that have a row, the targets in their
// states that have none; it may name more. "_MirrorState" holds where the mirror stands.
//
// Version 1 of the file had no tables of the mirror; it is brought to version 2 when a store is opened.
//
// Columns carry the numbers of ColumnSet; a to-many relationship is no column.

QString quoted(const QString& name);

bool isToOne(const RelationshipDescription& relationship);

// Whether the join table of a pair of to-many relationships belongs to this end of it; false for a
// relationship that has no join table.
bool ownsJoinTable(const std::vector<EntityDescription>& entities, const EntityDescription& entity,
                   const RelationshipDescription& relationship);
QString joinTable(const EntityDescription& entity, const RelationshipDescription& relationship);

struct StoredColumn {
    qsizetype index = 0;
    QString name; // quoted
};

std::vector<StoredColumn> columnsOf(const EntityDescription& entity);

// Every statement that makes the tables and indexes of the entities in an empty file, metadata not included.
QStringList tablesOf(const std::vector<EntityDescription>& entities);
// Of the tables that every store has, whatever its model: a file's user_version.
constexpr int currentFileVersion = 2;

// The statements that make the tables which every store of that version has.
QStringList commonTables(int fileVersion = currentFileVersion);
// Those of them that version 1 does not have.
QStringList mirrorTables();
// The names of the tables and of the indexes that tablesOf() makes.
QStringList tableNames(const std::vector<EntityDescription>& entities);
QStringList indexNames(const std::vector<EntityDescription>& entities);

} // namespace platform
