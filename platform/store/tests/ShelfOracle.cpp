#include "platform/store/tests/ShelfOracle.h"

#include "platform/store/tests/ShelfModel.h"

namespace shelf {

const char* nameOf(Kind kind) {
    switch (kind) {
    case Kind::Book:
        return "Book";
    case Kind::Shelf:
        return "Shelf";
    case Kind::Author:
        return "Author";
    case Kind::Note:
        return "Note";
    }
    return nullptr;
}

void PlainRelation::link(int from, int to) {
    m_targets[from].insert(to);
    m_sources[to].insert(from);
}

void PlainRelation::unlink(int from, int to) {
    m_targets[from].erase(to);
    m_sources[to].erase(from);
}

void PlainRelation::clear(int from) {
    for (const int to : std::set(targets(from)))
        unlink(from, to);
}

void PlainRelation::clearBack(int to) {
    for (const int from : std::set(sources(to)))
        unlink(from, to);
}

const std::set<int>& PlainRelation::at(const Sets& sets, int number) {
    static const std::set<int> none;
    const auto found = sets.find(number);
    return found == sets.end() ? none : found->second;
}

ShelfOracle::End ShelfOracle::end(Kind kind, qsizetype relationship) {
    switch (kind) {
    case Kind::Book:
        if (relationship == OnShelf) return {&shelfOf, true, true};
        if (relationship == Authors) return {&authorsOf, true, false};
        return {&bookOf, false, false};
    case Kind::Shelf:
        return {&shelfOf, false, false};
    case Kind::Author:
        return {&authorsOf, false, false};
    case Kind::Note:
        return {&bookOf, true, true};
    }
    return {};
}

const std::set<int>& ShelfOracle::related(int number, qsizetype relationship) {
    const auto [relation, isFrom, isToOne] = end(objects.at(number).kind, relationship);
    return isFrom ? relation->targets(number) : relation->sources(number);
}

void ShelfOracle::link(int number, qsizetype relationship, int other) {
    const auto [relation, isFrom, isToOne] = end(objects.at(number).kind, relationship);
    const int from = isFrom ? number : other;
    if (relation != &authorsOf) relation->clear(from);
    relation->link(from, isFrom ? other : number);
}

void ShelfOracle::unlink(int number, qsizetype relationship, int other) {
    const auto [relation, isFrom, isToOne] = end(objects.at(number).kind, relationship);
    relation->unlink(isFrom ? number : other, isFrom ? other : number);
}

std::set<int> ShelfOracle::remove(int number) {
    std::set<int> removed{number};
    if (objects.at(number).kind == Kind::Book)
        removed.insert(bookOf.sources(number).begin(), bookOf.sources(number).end());
    for (const int each : removed) {
        for (auto* relation : {&shelfOf, &authorsOf, &bookOf}) {
            relation->clear(each);
            relation->clearBack(each);
        }
        objects.erase(each);
    }
    return removed;
}

} // namespace shelf
