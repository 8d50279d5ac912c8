#pragma once

#include "Quillet/core/Segment.h"
#include "Quillet/core/Snippet.h"

#include <memory>

namespace quillet {

// What a code is the text of: a snippet, one of its segments, or nothing. Two are equal where they are the
// same object. Main thread.
class CodeOwner {
public:
    CodeOwner() = default;

    // Null is nothing.
    explicit CodeOwner(std::shared_ptr<Snippet> snippet)
        : m_snippet(std::move(snippet)) {}

    // Of a snippet that may be deleted meanwhile.
    CodeOwner(std::shared_ptr<Snippet> snippet, std::shared_ptr<Segment> segment)
        : m_snippet(std::move(snippet))
        , m_segment(std::move(segment)) {}

    explicit operator bool() const { return m_snippet != nullptr; }

    bool operator==(const CodeOwner&) const = default;

    const std::shared_ptr<Snippet>& snippet() const { return m_snippet; }

    // Null for the snippet's own code.
    const std::shared_ptr<Segment>& segment() const { return m_segment; }

    platform::ManagedObject* object() const;

    bool isIn(const platform::ManagedObjectContext& context) const;

    // An absent code reads as empty. Error: it cannot be read now.
    platform::StoreResult<QString> readCode() const;
    void setCode(const QString& code) const;

    // Puts what is deleted back into `context`, so that what was typed into it is kept.
    void putBack(platform::ManagedObjectContext& context) const;

private:
    std::shared_ptr<Snippet> m_snippet;
    std::shared_ptr<Segment> m_segment;
};

} // namespace quillet
