#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace platform {

// Where a literal text is found in another one: from its start on, without overlaps, as many as are counted.
// Locations are UTF-16 code units.
class TextMatches {
public:
    static constexpr std::size_t mostCounted = 10'000;

    struct Query {
        QString text; // an empty one is found nowhere
        Qt::CaseSensitivity caseSensitivity = Qt::CaseInsensitive;
    };

    TextMatches() = default;
    TextMatches(const QString& text, const Query& query);

    bool isEmpty() const { return m_starts.empty(); }

    // Whether there are more than are counted.
    bool isCapped() const { return m_isCapped; }

    // Whether all before `limit` are counted.
    bool reaches(int limit) const { return !m_isCapped || (!isEmpty() && m_starts.back() >= limit); }

    struct Selection {
        int start = 0;
        int limit = 0;
    };

    // Such as "3 of 17", "17 results" where `selection` is none of them, "3 of 10,000+", "No results".
    QString countText(Selection selection) const;

    // The starts of those that touch [start, limit), ascending.
    std::span<const int> touching(int start, int limit) const;

    // The first that starts at `location` or behind it, the last that ends there or before; none where there
    // is none.
    std::optional<int> firstFrom(int location) const;
    std::optional<int> lastBefore(int location) const;

    // The text was edited: those behind move along, those that the edit touched are no more. New ones are
    // not looked for.
    void edit(int position, int removed, int added);

private:
    std::vector<int> m_starts;
    int m_length = 0; // of each
    bool m_isCapped = false;
};

} // namespace platform
