#include "Tessarine/document/LineManager.h"

namespace tessarine {

namespace {

std::optional<std::string> faultOf(const DocumentLineNode& line) {
    const DocumentLineNodeData& data = line.data();
    double height = data.lineHeight();
    ByteCount bytes = data.byteCount();
    for (const DocumentLineNode* child : {line.left(), line.right()}) {
        if (!child) continue;
        height += child->data().totalLineHeight();
        bytes += child->data().nodeTotalByteCount();
    }
    if (height != data.totalLineHeight()) return "a total height is stale";
    if (bytes != data.nodeTotalByteCount()) return "a total byte count is stale";
    if (data.delimiterLength() < 0 || data.length() < 0) return "a line is shorter than its delimiter";
    return std::nullopt;
}

} // namespace

std::optional<std::string> LineManager::check() const {
    if (auto fault = m_documentLineTree->check()) return fault;
    auto lines = m_documentLineTree->iterator();
    while (const DocumentLineNode* line = lines.next())
        if (auto fault = faultOf(*line)) return fault;
    return std::nullopt;
}

} // namespace tessarine
