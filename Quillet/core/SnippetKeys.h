#pragma once

#include "Quillet/core/RecordKey.h"

#include <array>
#include <optional>

namespace quillet {

// All fields of the program's cloud records.
enum class SnippetKeys { id, name, lastUpdate, title, notes, code, language, isRevision };

inline constexpr std::array allSnippetKeys{
    SnippetKeys::id,    SnippetKeys::name, SnippetKeys::lastUpdate, SnippetKeys::title,
    SnippetKeys::notes, SnippetKeys::code, SnippetKeys::language,   SnippetKeys::isRevision};

// The name of the case.
QString rawValue(SnippetKeys key);
// Nothing for any other text.
std::optional<SnippetKeys> snippetKeyFromRawValue(const QString& rawValue);

static_assert(RecordKey<SnippetKeys>);

} // namespace quillet
