#include "Tessarine/document/TextRuns.h"

#include "Tessarine/document/TextSnapshot.h"

namespace tessarine {

void TextRuns::Iterator::seek(std::int64_t location) {
    m_run = location < m_limit ? m_text->runAt(location).clipped(location, m_limit) : TextRun();
}

} // namespace tessarine
