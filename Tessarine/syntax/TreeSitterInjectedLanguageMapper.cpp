#include "Tessarine/syntax/TreeSitterInjectedLanguageMapper.h"

#include "Tessarine/syntax/TextSubstring.h"

#include <unicode/unistr.h>
#include <utility>

namespace tessarine {

namespace {

std::optional<std::string> utf8(const std::optional<std::u16string>& text) {
    if (!text) return std::nullopt;
    std::string converted;
    icu::UnicodeString(false, text->data(), static_cast<std::int32_t>(text->size())).toUTF8String(converted);
    return converted;
}

std::string ownLanguageName(const TreeSitterCapture& capture) {
    const auto property = capture.properties().find("injection.language");
    return property == capture.properties().end() ? std::string(capture.name()) : property->second;
}

} // namespace

std::vector<TreeSitterInjectedLanguage>
TreeSitterInjectedLanguageMapper::map(std::span<const TreeSitterCapture> captures) {
    for (const TreeSitterCapture& capture : captures) {
        auto pending = std::exchange(m_languageNamePendingContent, std::nullopt);
        if (capture.name() == "language")
            m_languageNamePendingContent = utf8(substring(m_text, capture.byteRange()));
        else if (capture.name() == "content")
            addContent(capture, std::move(pending));
        else
            addContent(capture, ownLanguageName(capture));
    }
    return std::exchange(m_injectedLanguages, {});
}

void TreeSitterInjectedLanguageMapper::addContent(const TreeSitterCapture& capture,
                                                  std::optional<std::string> languageName) {
    if (!languageName) return;
    m_injectedLanguages.push_back(
        {capture.node().id(), std::move(*languageName), capture.node().textRange()});
}

} // namespace tessarine
