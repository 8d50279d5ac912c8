#include "Quillet/browsing/SelectionViewModel.h"

namespace quillet {

namespace {

// What was deleted, here or elsewhere, has no context and can take no relation.
bool areAlive(const Snippet& snippet, const platform::ManagedObject& item) {
    return snippet.context() && item.context();
}

} // namespace

void SelectionViewModel::assign(Snippet& snippet, Item& item) {
    if (areAlive(snippet, item)) link(snippet, item);
}

void SelectionViewModel::toggle(Snippet& snippet, Item& item) {
    if (!areAlive(snippet, item)) return;
    if (isAssigned(snippet, item))
        unlink(snippet, item);
    else
        link(snippet, item);
}

} // namespace quillet
