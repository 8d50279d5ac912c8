#include "Quillet/core/Language.h"

#include <algorithm>

namespace quillet {

QString rawValue(Language language) {
    static const std::array names{QStringLiteral("swift"), QStringLiteral("objectiveC"),
                                  QStringLiteral("python"), QStringLiteral("javascript")};
    return names.at(static_cast<std::size_t>(language));
}

std::optional<Language> languageFromRawValue(const QString& text) {
    const auto found = std::ranges::find(allLanguages, text, rawValue);
    return found == allLanguages.end() ? std::nullopt : std::optional(*found);
}

} // namespace quillet
