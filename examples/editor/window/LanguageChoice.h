#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterLanguageMode.h"
#include "languages/catalogue/Language.h"

#include <QtCore/QString>

#include <optional>
#include <span>
#include <string_view>

namespace tessarine::editor {

using languages::Language;

struct LanguageTitle {
    Language language;
    std::u16string_view title;
};

// What a person can choose from, by title.
std::span<const LanguageTitle> languageTitles();

// "Plain Text" for none, and for those that nobody writes files in.
QString languageTitle(std::optional<Language> language);

// By the file's name, else by the program that its first line names.
std::optional<Language> languageOf(const QString& path, const TextSnapshot& text);

// As a text view takes it: an edit parses for a moment only, what takes longer goes on beside the main
// thread.
TreeSitterLanguageMode languageMode(Language language);

} // namespace tessarine::editor
