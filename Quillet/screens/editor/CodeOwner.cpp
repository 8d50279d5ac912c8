#include "Quillet/screens/editor/CodeOwner.h"

#include "platform/store/ManagedObjectContext.h"

namespace quillet {

platform::ManagedObject* CodeOwner::object() const {
    if (m_segment) return m_segment.get();
    return m_snippet.get();
}

bool CodeOwner::isIn(const platform::ManagedObjectContext& context) const {
    return object() && object()->context() == &context;
}

platform::StoreResult<QString> CodeOwner::readCode() const {
    if (m_segment) return m_segment->readCode();
    return m_snippet ? m_snippet->readCode() : QString();
}

void CodeOwner::setCode(const QString& code) const {
    if (m_segment)
        m_segment->setCode(code);
    else if (m_snippet)
        m_snippet->setCode(code);
}

void CodeOwner::putBack(platform::ManagedObjectContext& context) const {
    if (!m_snippet->context()) context.insert(m_snippet);
    if (!m_segment || m_segment->context()) return;
    context.insert(m_segment);
    m_segment->setToOne(Segment::OfSnippet, m_snippet.get());
}

} // namespace quillet
