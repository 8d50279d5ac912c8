#pragma once

#include "Quillet/core/Folder.h"
#include "Quillet/core/Repository.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/Tag.h"

namespace quillet {

// What is in the library, live. Main thread.
class DataStatsModel {
public:
    DataStatsModel();

    platform::Observable<Repository<Snippet>::Results> snippets;
    platform::Observable<Repository<Tag>::Results> tags;
    platform::Observable<Repository<Folder>::Results> folders;

private:
    Repository<Snippet> m_snippetRepository;
    Repository<Tag> m_tagRepository;
    Repository<Folder> m_folderRepository;
    std::vector<platform::Subscription> m_cancellables;
};

} // namespace quillet
