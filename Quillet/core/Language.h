#pragma once

#include <QtCore/QString>

#include <array>
#include <optional>

namespace quillet {

// The languages that can be turned on and off in the settings. Not the catalogue of what a snippet may be
// written in, which is the highlighter's.
enum class Language { swift, objectiveC, python, javascript };

inline constexpr std::array allLanguages{Language::swift, Language::objectiveC, Language::python,
                                         Language::javascript};

// The name of the case; what stands for the language in the settings.
QString rawValue(Language language);
// Nothing for any other text, and for another case of letters.
std::optional<Language> languageFromRawValue(const QString& rawValue);

} // namespace quillet
