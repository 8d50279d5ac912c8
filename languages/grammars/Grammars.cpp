#include "languages/grammars/Grammars.h"

#include <algorithm>

#define GRAMMAR(name, symbol) const TSLanguage* symbol();
extern "C" {
#include <GrammarTable.inc>
}
#undef GRAMMAR

namespace tessarine::languages {

namespace {

#define GRAMMAR(name, symbol) Grammar{name, symbol},
constexpr Grammar table[] = {
#include <GrammarTable.inc>
};
#undef GRAMMAR

} // namespace

std::span<const Grammar> grammars() {
    return table;
}

const TSLanguage* grammarNamed(std::string_view name) {
    const auto* const found = std::ranges::find(table, name, &Grammar::name);
    return found == std::end(table) ? nullptr : found->language();
}

} // namespace tessarine::languages
