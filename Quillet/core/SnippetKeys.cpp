#include "Quillet/core/SnippetKeys.h"

#include <algorithm>

namespace quillet {

QString rawValue(SnippetKeys key) {
    static const std::array names{QStringLiteral("id"),         QStringLiteral("name"),
                                  QStringLiteral("lastUpdate"), QStringLiteral("title"),
                                  QStringLiteral("notes"),      QStringLiteral("code"),
                                  QStringLiteral("language"),   QStringLiteral("isRevision")};
    return names.at(static_cast<std::size_t>(key));
}

std::optional<SnippetKeys> snippetKeyFromRawValue(const QString& text) {
    const auto found =
        std::ranges::find_if(allSnippetKeys, [&text](SnippetKeys key) { return rawValue(key) == text; });
    return found == allSnippetKeys.end() ? std::nullopt : std::optional(*found);
}

} // namespace quillet
