#pragma once

#include "Quillet/browsing/ListItem.h"
#include "Quillet/core/Repository.h"
#include "Quillet/core/SnippetService.h"

namespace quillet {

// The three groups of the home list: folders, tags and languages, each member with its snippets below it.
// Snippets are in the order that the settings name: by title, by the plain order of code points, or what was
// modified last first, where a snippet without a date counts as modified at this moment.
// Rebuilt whole at each change of the library. Main thread.
class SnippetListModel {
public:
    using Items = std::vector<std::shared_ptr<ListItem>>;
    using Snippets = Repository<Snippet>::Results;
    using Folders = Repository<Folder>::Results;
    using Tags = Repository<Tag>::Results;

    SnippetListModel();
    SnippetListModel(const SnippetListModel&) = delete;
    SnippetListModel& operator=(const SnippetListModel&) = delete;

    void rebuild(const Snippets& snippets, const Folders& folders, const Tags& tags);

    // Nothing ever writes to it: a selection by snippet looks here and finds nothing, on purpose.
    platform::Observable<Items> listItems;
    // Published in this order: tags, folders, languages.
    platform::Observable<Items> tagItems;
    platform::Observable<Items> folderItems;
    platform::Observable<Items> languageItems;

    const Tags& tags() const { return m_tags; }

    const Snippets& snippets() const { return m_snippets; }

    const Folders& folders() const { return m_folders; }

    SnippetService& snippetService() { return m_snippetService; }

private:
    void refresh();

    Tags m_tags;
    Snippets m_snippets;
    Folders m_folders;
    Repository<Tag> m_tagRepository;
    Repository<Snippet> m_snippetRepository;
    Repository<Folder> m_folderRepository;
    SnippetService m_snippetService;
    std::vector<platform::Subscription> m_cancellables;
};

} // namespace quillet
