#pragma once

#include "Quillet/core/Snippet.h"

#include <QtCore/QHash>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace quillet {

// The snippets of one state of the library, each with its rank in the order that the settings name. The order
// is found once for all of them: a group is then sorted by small numbers, however often a snippet stands in
// one. Equal ranks are ties. Main thread.
class SnippetOrder {
public:
    using Number = std::uint32_t; // of a snippet in here

    explicit SnippetOrder(std::span<const std::shared_ptr<Snippet>> snippets);

    const std::shared_ptr<Snippet>& at(Number number) const { return m_snippets[number]; }

    // Takes in a snippet that is not there yet, until rank() is called.
    Number add(Snippet& snippet);

    // Reads what the order goes by.
    void rank();

    // Stable.
    void sort(std::vector<Number>& numbers) const;

private:
    void rankByTitle();
    void rankByDate();

    std::vector<std::shared_ptr<Snippet>> m_snippets;
    QHash<const Snippet*, Number> m_numbers;
    std::vector<Number> m_ranks; // by number
};

} // namespace quillet
