#pragma once

#include "Quillet/screens/editor/CodeOwner.h"
#include "platform/screens/text/TextView.h"
#include "platform/store/ManagedObjectContext.h"

#include <vector>

namespace quillet {

// Whose text is on screen, and which texts are typed and not written to their owners yet. Nothing that was
// typed is lost on the way: what leaves the screen unwritten is set aside until the next write, and what
// somebody else stored meanwhile is merged. Main thread.
class EditedText {
public:
    // Both outlive this.
    EditedText(platform::TextView& view, platform::ManagedObjectContext& context)
        : m_view(&view)
        , m_context(&context) {}

    // Nothing while the text on screen is nobody's: a hint, or that of one who has to give way.
    const CodeOwner& owner() const { return m_owner; }

    // Typed and not written, on screen or set aside.
    bool isUnwritten() const { return isTyped() || !m_aside.empty(); }

    // The view shows `code`, the stored one of `owner`, from now on. What was set aside for it takes its
    // place.
    void begin(const CodeOwner& owner, const QString& code);
    // What is typed already becomes the text of `owner`, which has it.
    void adopt(const CodeOwner& owner);
    // The text on screen is nobody's any more; what was typed into it is set aside.
    void leave();
    // Forgets what is typed for these, and never puts them back.
    void abandon(const Snippet& snippet);
    void abandon(const Segment& segment);

    // Writes what is typed on screen to its owner, and what was set aside to theirs. No save. A text stays
    // where it is while its owner's cannot be read.
    void write();
    void writeShown();

    // The owner's text was changed by somebody else, perhaps.
    void takeChanges(const platform::ContextChanges& changes);

private:
    struct Aside {
        CodeOwner owner;
        QString typed;
        QString base; // the stored text that it was made from
    };

    bool isTyped() const { return m_owner && m_view->document()->isModified(); }

    void take(const QString& stored);
    void writeAside();

    platform::TextView* m_view;
    platform::ManagedObjectContext* m_context;
    CodeOwner m_owner;
    QString m_known;            // of the owner, as this has seen it
    bool m_isAbandoned = false; // the owner was deleted here
    std::vector<Aside> m_aside;
};

} // namespace quillet
