#include "Quillet/screens/editor/EditedText.h"

#include <algorithm>

namespace quillet {

void EditedText::begin(const CodeOwner& owner, const QString& code) {
    m_owner = owner;
    m_known = code;
    m_isAbandoned = false;
    m_view->document()->setModified(false);
    const auto aside = std::ranges::find(m_aside, owner, &Aside::owner);
    if (aside != m_aside.end()) {
        m_view->updateText(aside->typed);
        m_view->document()->setModified(true);
        m_known = aside->base;
        m_aside.erase(aside);
    }
    // It may have changed on the way here.
    if (const auto stored = owner.readCode(); stored && owner.isIn(*m_context)) take(*stored);
}

void EditedText::adopt(const CodeOwner& owner) {
    m_owner = owner;
    m_known = m_view->text();
    m_isAbandoned = false;
    m_view->document()->setModified(false);
}

void EditedText::leave() {
    if (isTyped() && !m_isAbandoned) m_aside.push_back({m_owner, m_view->text(), m_known});
    m_owner = {};
}

void EditedText::abandon(const Snippet& snippet) {
    std::erase_if(m_aside, [&](const Aside& aside) { return aside.owner.snippet().get() == &snippet; });
    if (m_owner.snippet().get() == &snippet) m_isAbandoned = true;
}

void EditedText::abandon(const Segment& segment) {
    std::erase_if(m_aside, [&](const Aside& aside) { return aside.owner.segment().get() == &segment; });
    if (m_owner.segment().get() == &segment) m_isAbandoned = true;
}

void EditedText::write() {
    writeShown();
    writeAside();
}

void EditedText::writeShown() {
    if (!isTyped()) return;
    if (m_owner.isIn(*m_context)) {
        // Of what it cannot read now it does not know whether the text on screen is made from it.
        const auto stored = m_owner.readCode();
        if (!stored) return;
        take(*stored);
    }
    m_known = m_view->text();
    m_owner.setCode(m_known);
    m_view->document()->setModified(false);
    if (!m_isAbandoned) m_owner.putBack(*m_context);
}

void EditedText::writeAside() {
    std::erase_if(m_aside, [this](const Aside& aside) {
        const auto stored = aside.owner.isIn(*m_context) ? aside.owner.readCode() : aside.base;
        if (!stored) return false;
        aside.owner.setCode(*stored == aside.base ? aside.typed
                                                  : Segment::mergeTyped(*aside.owner.snippet(), aside.base,
                                                                        *stored, aside.typed));
        aside.owner.putBack(*m_context);
        return true;
    });
}

void EditedText::takeChanges(const platform::ContextChanges& changes) {
    const auto isOwner = [this](const auto& object) { return object.get() == m_owner.object(); };
    if (!m_owner || std::ranges::none_of(changes.updated, isOwner)) return;
    // What cannot be read now is merged when it is written.
    if (const auto stored = m_owner.readCode()) take(*stored);
}

void EditedText::take(const QString& stored) {
    if (stored == m_known) return;
    if (!isTyped()) {
        m_view->updateText(stored);
        m_view->document()->setModified(false);
    } else if (const QString typed = m_view->text(); typed != stored) {
        m_view->updateText(Segment::mergeTyped(*m_owner.snippet(), m_known, stored, typed));
    }
    m_known = stored;
}

} // namespace quillet
