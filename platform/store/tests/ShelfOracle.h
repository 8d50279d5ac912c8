#pragma once

#include <QtCore/QVariant>

#include <set>
#include <unordered_map>
#include <vector>

namespace shelf {

enum class Kind { Book, Shelf, Author, Note };

inline constexpr Kind everyKind[] = {Kind::Book, Kind::Shelf, Kind::Author, Kind::Note};

// The name of the entity.
const char* nameOf(Kind kind);

// Pairs of numbers, looked up from either end.
class PlainRelation {
public:
    void link(int from, int to);
    void unlink(int from, int to);
    void clear(int from);
    void clearBack(int to);

    bool contains(int from, int to) const { return targets(from).contains(to); }

    const std::set<int>& targets(int from) const { return at(m_targets, from); }

    const std::set<int>& sources(int to) const { return at(m_sources, to); }

private:
    using Sets = std::unordered_map<int, std::set<int>>;
    static const std::set<int>& at(const Sets& sets, int number);

    Sets m_targets;
    Sets m_sources;
};

// What a library of the shelf model should hold, in plain maps and sets. Objects are known by number.
struct ShelfOracle {
    struct Object {
        Kind kind;
        std::vector<QVariant> values;
    };

    std::unordered_map<int, Object> objects;
    PlainRelation shelfOf;   // of a book, at most one
    PlainRelation authorsOf; // of a book
    PlainRelation bookOf;    // of a note, at most one

    // The relation behind a relationship, and whether the object is at its `from` end.
    struct End {
        PlainRelation* relation;
        bool isFrom;
        bool isToOne; // seen from this end
    };

    End end(Kind kind, qsizetype relationship);
    const std::set<int>& related(int number, qsizetype relationship);
    // Makes the pair, after taking apart what a to-one end had before.
    void link(int number, qsizetype relationship, int other);
    void unlink(int number, qsizetype relationship, int other);

    // The notes of a book go with it. Gives all that went.
    std::set<int> remove(int number);
};

} // namespace shelf
