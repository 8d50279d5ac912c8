#pragma once

#include <memory>

namespace quillet {

class Snippet;

// What the list asks of the root.
class SnippetSelectionDelegate {
public:
    virtual ~SnippetSelectionDelegate() = default;
    virtual void didSelect(const std::shared_ptr<Snippet>& snippet) = 0;
    virtual void didDelete(const std::shared_ptr<Snippet>& snippet) = 0;
    // The user wants to choose a folder for it.
    virtual void addToFolder(const std::shared_ptr<Snippet>& snippet) = 0;
};

// Told of a new snippet, once it is saved.
class SnippetCreationDelegate {
public:
    virtual ~SnippetCreationDelegate() = default;
    virtual void didCreate(const std::shared_ptr<Snippet>& snippet) = 0;
};

// Told of a snippet whose details were edited.
class SnippetEditDelegate {
public:
    virtual ~SnippetEditDelegate() = default;
    virtual void didEdit(const std::shared_ptr<Snippet>& snippet) = 0;
};

} // namespace quillet
