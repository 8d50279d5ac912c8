#pragma once

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Repository.h"
#include "Quillet/core/Snippet.h"
#include "platform/foundation/Observable.h"

#include <QtCore/QString>

#include <memory>
#include <optional>
#include <vector>

namespace quillet {

// All tags or all folders as a live list, and what it means that a snippet has one. Nothing here saves but
// the removal. Main thread.
class SelectionViewModel {
public:
    using Item = platform::ManagedObject;
    using Items = std::vector<std::shared_ptr<Item>>;

    SelectionViewModel() = default;
    virtual ~SelectionViewModel() = default;
    SelectionViewModel(const SelectionViewModel&) = delete;
    SelectionViewModel& operator=(const SelectionViewModel&) = delete;

    // In the order of the repository, which is none in particular.
    const platform::Observable<Items>& items() const { return m_items; }

    platform::Observable<Items>& items() { return m_items; }

    virtual QString titleOf(const Item& item) const = 0;
    // Absent for what has no colour.
    virtual std::optional<int> colorIndexOf(const Item& item) const = 0;

    virtual bool isAssigned(const Snippet& snippet, Item& item) const = 0;
    // An item or a snippet that was deleted meanwhile stays as it is.
    void assign(Snippet& snippet, Item& item);
    void toggle(Snippet& snippet, Item& item);

    // The snippets stay and only lose the link. Saves.
    virtual void remove(Item& item) = 0;

protected:
    virtual void link(Snippet& snippet, Item& item) = 0;
    virtual void unlink(Snippet& snippet, Item& item) = 0;

    platform::Observable<Items> m_items;
};

// The part that does not ask which of the two it is.
template <typename T, typename Service>
class RepositorySelectionViewModel : public SelectionViewModel {
public:
    RepositorySelectionViewModel()
        : m_repository(CoreDataStack::shared().viewContext())
        , m_service(&Service::shared()) {
        m_cancellables.push_back(
            m_repository.results().observe([this](const auto& results) { take(results); }));
    }

    QString titleOf(const Item& item) const override { return static_cast<const T&>(item).title(); }

    void remove(Item& item) override { m_service->remove(static_cast<T&>(item), Service::Snippets::Keep); }

private:
    void take(const typename Repository<T>::Results& results) {
        m_items.set(Items(results.begin(), results.end()));
    }

    Repository<T> m_repository;
    Service* m_service;
    std::vector<platform::Subscription> m_cancellables;
};

} // namespace quillet
