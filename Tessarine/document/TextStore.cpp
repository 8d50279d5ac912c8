#include "Tessarine/document/TextStore.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/TextStoreBuilder.h"

namespace tessarine {

namespace {

TextNodeRef treeOf(std::u16string_view text, TextStoreLimits limits) {
    TextStoreBuilder builder(limits);
    builder.append(text);
    return builder.takeTree();
}

} // namespace

TextStore::TextStore(std::u16string_view text, TextStoreLimits limits)
    : TextStore(treeOf(text, limits), limits) {}

void TextStore::replace(std::int64_t location, std::int64_t length, std::u16string_view text) {
    if (location < 0 || length < 0 || location > this->length() - length)
        fatalError("A replacement lies outside of the text.");
    TextNodeRef& root = m_text.m_root;
    const bool isShort = text.size() <= static_cast<std::size_t>(m_limits.chunkUnits);
    if (root && isShort && liesInOneChunk(location, length)) {
        if (length > 0 || !text.empty()) m_balance.replaceInChunk(root, location, length, text);
        return;
    }
    auto [left, rest] = m_balance.split(std::move(root), location);
    TextNodeRef right = m_balance.split(std::move(rest), length).second;
    root = m_balance.join(m_balance.join(std::move(left), treeOf(text, m_limits)), std::move(right));
}

bool TextStore::liesInOneChunk(std::int64_t location, std::int64_t length) const {
    return length <= 1 || m_text.runAt(location).limit() >= location + length;
}

} // namespace tessarine
